// Project files: any bytes, and files that are in order but for their values.
#include "fuzz/fuzz.h"
#include "mesh/oto_mesh.h"
#include "model/failure.h"
#include "model/project_file.h"
#include "model/startup.h"
#include "model/store.h"

#include <array>
#include <fstream>
#include <sstream>

namespace havuz::fuzz {

static void Read(const std::string &text) {
    const std::string path = Sandbox() + "/input.POL";
    std::ofstream(path, std::ios::binary) << text;
    ResetStore();
    ProjectWindow none;
    try {
        LoadProject(path, none);
    } catch (const RuntimeFailure &) {
        return;
    }
    CheckModel();
}

void ProjectBytes(const std::uint8_t *data, std::size_t size) {
    Read(std::string(reinterpret_cast<const char *>(data), size));
}

namespace {

// Choices taken from the input; 0 behind its end.
class Choices {
public:
    Choices(const std::uint8_t *data, std::size_t size) : at_(data), end_(data + size) {}
    unsigned below(unsigned n) { return (at_ == end_ ? 0U : *at_++) % n; }
    // mostly a number of the range, now and then one that no field expects
    std::string whole(int low, int high) {
        static constexpr std::array odd = {"0",           "-1",  "32767", "32768", "-32769", "1E+05", "",
                                           "99999999999", "1.5", "x",     "5001",  "1000",   "1001",  "\"2\""};
        if (below(64) == 0)
            return odd[below(odd.size())];
        return std::to_string(low + static_cast<int>(below(static_cast<unsigned>(high - low + 1))));
    }
    std::string real() {
        static constexpr std::array odd = {"0",  "1E+38",  "1E+39", "-1E-40", "1D+02",
                                           ".5", "1E+400", "nan",   "inf",    "-0"};
        if (below(64) == 0)
            return odd[below(odd.size())];
        return std::to_string(static_cast<int>(below(64)) - 8) + "." + std::to_string(below(4) * 25);
    }

private:
    const std::uint8_t *at_, *end_;
};

class File {
public:
    explicit File(Choices &choices) : c_(choices) {}
    std::string text() {
        const unsigned panels = c_.below(6), plates = c_.below(3), nodes = c_.below(30), meshes = c_.below(20);
        out_ << "fuzz\r\n" << panels << ',' << plates << ',' << nodes << ',' << meshes << ',' << c_.below(4) << "\r\n";
        reals(7);
        reals(11);
        wholes(4, 0, 1);
        wholes(3, 0, 1);
        reals(3);
        for (unsigned i = 0; i < panels; ++i)
            panel(i + 1);
        for (unsigned i = 0; i < plates; ++i)
            plate();
        for (unsigned i = 0; i < meshes; ++i)
            wholes(6, 0, static_cast<int>(nodes) + 1);
        for (unsigned i = 0; i < nodes; ++i)
            node();
        for (unsigned i = c_.below(3); i > 0; --i)
            out_ << c_.whole(1, 30) << ',' << c_.real() << ',' << c_.real() << ',' << c_.real() << "\r\n";
        out_ << "0,0,0,0\r\n";
        wholes(13, 0, 30);
        return out_.str();
    }

private:
    void reals(int n) {
        for (int k = 0; k < n; ++k)
            out_ << (k == 0 ? "" : ",") << c_.real();
        out_ << "\r\n";
    }
    void wholes(int n, int low, int high) {
        for (int k = 0; k < n; ++k)
            out_ << (k == 0 ? "" : ",") << c_.whole(low, high);
        out_ << "\r\n";
    }
    void panel(unsigned no) {
        out_ << no << ',' << c_.whole(0, 6) << ',' << c_.whole(0, 6) << ',' << c_.real() << ',' << c_.whole(0, 2) << ','
             << c_.real() << ',' << c_.real() << "\r\n";
        for (int k = 0; k < 4; ++k)
            out_ << c_.real() << ',' << c_.real() << ',' << c_.real() << ',' << c_.whole(0, 1) << ','
                 << c_.whole(-204, 604) << "\r\n";
    }
    void plate() {
        const unsigned points = c_.below(9);
        out_ << points << ',' << c_.whole(0, 60) << "\r\n";
        for (unsigned k = 0; k < points; ++k)
            out_ << c_.real() << ',' << c_.real() << ',' << c_.real() << ',' << c_.whole(-204, 604) << "\r\n";
    }
    void node() {
        out_ << c_.whole(0, 3) << ',' << c_.real() << ',' << c_.real() << ',' << c_.real() << ',' << c_.whole(0, 7)
             << ',' << c_.whole(0, 30) << ',' << c_.whole(0, 30) << ',' << c_.real() << "\r\n";
    }
    Choices &c_;
    std::ostringstream out_;
};

} // namespace

// What can be read is meshed as well: it ends by itself, with a failure or a model that can be saved.
void ProjectStructure(const std::uint8_t *data, std::size_t size) {
    Choices choices(data, size);
    const std::string text = File(choices).text();
    Read(text);
    MeshWindow none;
    try {
        MeshGenisligi = 1.0;
        AutoMesh(none);
    } catch (const RuntimeFailure &) {
        return;
    }
    CheckModel();
}

} // namespace havuz::fuzz
