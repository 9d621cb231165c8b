// The general parameters of a model, one row each: start and new project, pool library, project file, `set` and `info`
// take them from here. What is text (ProjeIsmi) or a list (load situations, fillings, diameters) has no row.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace havuz {

// Where the project file keeps a parameter: the fields of a record stand in the order of the table.
enum class ParameterRecord : std::uint8_t { Counts, Soil, Pool, Materials, None };

struct Parameter {
    const char *name; // of the model
    double *value;
    const char *unit;           // "" for a count or a choice
    double start;               // at the start and of a new project
    std::optional<double> pool; // what the pool library shows at first
    const char *label;          // for a person
    ParameterRecord record;
};

std::span<const Parameter> Parameters();

// nullptr when no parameter has the name.
const Parameter *FindParameter(std::string_view name);

// MeshGenisligi, m, as a person gave it. What generates or meshes takes the width here, at its door, and hands it on.
double MeshWidth();

void ResetParameterValues(); // all 0, as before the program's start
void StartParameterValues();
void TakePoolParameters(); // the first values of the pool library; the others stay

} // namespace havuz
