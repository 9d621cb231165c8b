#include "app/result_tables.h"

#include "model/failure.h"
#include "model/files.h"
#include "model/write_file.h"

#include <filesystem>

namespace havuz {

void WriteTables(const std::string &directory, const std::vector<design::NamedTable> &tables) {
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (!DirectoryExists(directory))
        FailFile(Fault::CannotCreate, directory, error.value());
    for (const design::NamedTable &table : tables) {
        BesideFile file(directory + "/" + table.file);
        table.write([&](std::string_view piece) { file.write(piece); });
        file.replaceTarget();
    }
}

} // namespace havuz
