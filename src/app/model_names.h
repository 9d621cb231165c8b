// Values of the model by name, as the command line takes them: NAME=VALUE, with the name of a parameter or of a field
// of one record, such as Lx, YukDurum(2), Mesnet(17), KenarMesnet(3,1).
#pragma once

#include <string>
#include <vector>

namespace havuz {

struct Assignment {
    std::string name; // without the places in brackets
    std::vector<int> places;
    std::string value; // text behind the "="
};

// Text that is no assignment is UsageError.
Assignment ParseAssignment(const std::string &text);

// General parameters: the scalars of the store, YukDurum(0..3), YukKombinasyon(0..2), DonatiCaplari(1..13). Units are
// those of the store. A name that is none of these is refused by false; a value that is no number is UsageError.
bool SetParameter(const Assignment &a);

// Fields of nodes, point loads, meshes, panels and plates in use, beside the parameters. A record outside the table's
// count is Subscript; a name that is nothing of the model is UsageError.
void SetModelValue(const Assignment &a);

// What a name stands for. MeshPart: a value of a node, a point load or a mesh, which the next meshing replaces;
// ShapePart: of a panel or plate. Text that is no name of the model is UsageError; places are not looked up.
enum class ModelPart { Parameter, ShapePart, MeshPart };
ModelPart PartOfModel(const Assignment &a);

// NAME or NAME(places) without a value. Text that is neither is UsageError.
Assignment ParseModelName(const std::string &text);

// The value of such a name, NAME or NAME(places), as text. Failures as above.
std::string ModelValueText(const std::string &name);

} // namespace havuz
