// havuz-cli polygon: a pool of any outline, alone or added to a project.
#include "app/cli.h"
#include "app/plan_points.h"
#include "app/project.h"
#include "mesh/polygon_pool.h"
#include "model/store.h"

#include <memory>

namespace havuz {

static void MakePolygonPool(const PolygonPool &pool, const std::string &onto, const std::string &out) {
    if (onto.empty()) {
        BeginProgram();
        ClearModel();
    } else {
        OpenProject(onto);
    }
    BuildPolygonPool(pool);
    StoreProject(out);
}

void AddPolygonCommand(CLI::App &parser, Job &job) {
    struct Options {
        std::string out, onto, points;
        PolygonPool pool;
    };
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("polygon", "make a pool of any outline");
    command->add_option("-o", o->out, "project file to write")->required()->type_name("FILE.POL");
    command->add_option("--points", o->points, "outline in order, m")->required()->type_name("\"x,y x,y ...\"");
    command->add_option("--dp", o->pool.dp, "wall thickness")->required()->type_name("CM");
    command->add_option("--ds", o->pool.ds, "base thickness")->required()->type_name("CM");
    command->add_option("--top", o->pool.UstKot, "top level")->required()->type_name("M");
    command->add_option("--bottom", o->pool.AltKot, "bottom level")->required()->type_name("M");
    command->add_option("--onto", o->onto, "project to add the pool to")->type_name("FILE.POL");
    command->callback([o, &job] {
        job = {o->out, [o] {
                   o->pool.points = ParsePlanPoints(o->points);
                   if (o->pool.points.size() < 3)
                       throw UsageError("--points: an outline has three points or more");
                   MakePolygonPool(o->pool, o->onto, o->out);
               }};
    });
}

} // namespace havuz
