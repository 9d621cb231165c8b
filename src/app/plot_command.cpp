// havuz-cli plot: one clear picture of a table of variants.
#include "app/cli.h"
#include "model/files.h"
#include "model/write_file.h"
#include "report/svg_plot.h"

#include <memory>

namespace havuz {

void AddPlotCommand(CLI::App &parser, Job &job) {
    struct Options {
        std::string table, out;
        PlotQuestion question;
    };
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("plot", "a picture of a table of variants");
    command->add_option("table", o->table, "table with results")->required()->type_name("OUT.csv");
    command->add_option("--x", o->question.x, "column along the picture")->required()->type_name("NAME");
    command->add_option("--y", o->question.y, "column up the picture; steel is steel_t")->required()->type_name("NAME");
    command->add_option("--by", o->question.by, "a line for each value of this column")->type_name("NAME");
    command->add_option("--title", o->question.title, "words over the picture");
    command->add_option("-o", o->out, "picture to write")->required()->type_name("P.svg");
    command->callback([o, &job] {
        job = {o->table, [o] {
                   if (!o->out.ends_with(".svg"))
                       throw UsageError("-o: \"" + o->out + "\" does not end with .svg");
                   const CsvTable table = ReadCsvTable(ReadWholeFile(o->table), o->table);
                   WriteWholeFile(o->out, PlotSvg(table, o->question));
               }};
    });
}

} // namespace havuz
