#include "verification/pools.h"

#include "fea/system.h"
#include "mesh/oto_mesh.h"
#include "mesh/polygon_pool.h"
#include "mesh/sound_mesh.h"
#include "model/options.h"
#include "model/platform.h"
#include "model/project_file.h"
#include "model/startup.h"
#include "model/store.h"
#include "pool/pool_library.h"

#include <algorithm>
#include <filesystem>

namespace havuz::verification {

using consistent::ReadTank;
using consistent::Tank;

void FreshModel() {
    ResetStore();
    ResetOptions();
    ResetSystem();
    StartModel(platform::OwnProgram());
}

void OpenProject(const std::string &path) {
    FreshModel();
    ProjectWindow none;
    LoadProject(path, none);
}

std::vector<std::string> ProjectsOf(const std::string &folder) {
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".POL")
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

static void Take(const Parameters &parameters) {
    for (const auto &[parameter, value] : parameters)
        *parameter = value;
}

Tank LibraryPool(int page, const Parameters &parameters) {
    FreshModel();
    Take(parameters);
    PoolWindow pool;
    GeneratePool(page, pool);
    MeshWindow window;
    if (page == 1)
        AutoMesh(window);
    return ReadTank();
}

Tank PolygonTank(const PolygonShape &shape, const Parameters &parameters, bool sound) {
    FreshModel();
    PolygonPool pool;
    for (const auto &[x, y] : shape.points)
        pool.points.push_back({x, y});
    pool.dp = shape.wall;
    pool.ds = shape.base;
    pool.UstKot = shape.top;
    pool.AltKot = shape.bottom;
    BuildPolygonPool(pool);
    Take(parameters);
    MeshGenisligi = shape.width;
    MeshWindow window;
    if (sound)
        SoundMesh(window, {shape.width, 0.0});
    else
        AutoMesh(window);
    return ReadTank();
}

} // namespace havuz::verification
