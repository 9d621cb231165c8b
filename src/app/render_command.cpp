// havuz-cli render: the plate or mesh view of a project as a PNG picture, or the contours of a result on one panel as
// PNG or SVG.
#include "app/cli.h"
#include "app/designed_project.h"
#include "app/project.h"
#include "model/number_text.h"
#include "model/options.h"
#include "model/store.h"
#include "model/write_file.h"
#include "report/chapters.h"
#include "report/pictures.h"
#include "ui/qt/raster_surface.h"
#include "ui/qt/report_paper.h"
#include "view/mesh_drawing.h"
#include "view/plate_drawing.h"
#include "view/view_state.h"

#include <memory>
#include <optional>

namespace havuz {

namespace {

struct RenderOptions {
    std::string file, out, view, angles = "-140,20", size = "1024x768";
    bool plan = false;
    std::string result, kase; // contours: name of the result, key of the case or combination
    int panel = 0;
};

// The picture must leave the drawing some room beside its margins; 16-bit numbers measure it.
constexpr int kLeastWidth = 120, kLeastHeight = 80, kLargestSide = 10000;

// "a<separator>b" as two numbers, nothing when it is not that.
std::optional<std::pair<double, double>> TwoNumbers(const std::string &text, char separator) {
    const std::size_t at = text.find(separator);
    if (at == std::string::npos)
        return std::nullopt;
    const std::optional<double> first = ReadNumberField(text.substr(0, at));
    const std::optional<double> second = ReadNumberField(text.substr(at + 1));
    if (!first || !second)
        return std::nullopt;
    return std::pair(*first, *second);
}

Pixel PictureSize(const std::string &text) {
    const auto size = TwoNumbers(text, 'x');
    if (!size)
        throw UsageError("--size: \"" + text + "\" is not WIDTHxHEIGHT");
    const auto [width, height] = *size;
    if (!(width >= kLeastWidth && width <= kLargestSide && height >= kLeastHeight && height <= kLargestSide) ||
        width != static_cast<int>(width) || height != static_cast<int>(height))
        throw UsageError("--size: a picture is " + std::to_string(kLeastWidth) + "x" + std::to_string(kLeastHeight) +
                         " to " + std::to_string(kLargestSide) + "x" + std::to_string(kLargestSide) + " whole pixels");
    return {static_cast<int>(width), static_cast<int>(height)};
}

void TakeAngles(const std::string &text) {
    const auto angles = TwoNumbers(text, ',');
    if (!angles)
        throw UsageError("--angles: \"" + text + "\" is not A,B in degrees");
    ViewAngleA = angles->first / 180.0 * kPi;
    ViewAngleB = angles->second / 180.0 * kPi;
}

void Draw(Surface &scr, const RenderOptions &o) {
    ViewWindow none;
    TakeSurfaceSize(scr);
    if (o.view == "plates" || (o.view.empty() && MeshCount == 0)) {
        DrawPlateView(scr, none);
        return;
    }
    if (MeshCount == 0)
        throw RuntimeFailure({.fault = Fault::NothingToDraw});
    PlateBoundsAndDepth(scr); // the mesh view fits the extents of the plates
    DrawMeshView(scr, none);
}

// A load case or a combination by its key.
const consistent::CaseResult &ResultOf(const design::Design &design, const std::string &key) {
    for (const auto *list : {&design.cases, &design.combinations})
        for (const consistent::CaseResult &result : *list)
            if (result.key == key)
                return result;
    throw UsageError("--case: there is no load case or combination \"" + key + "\"");
}

void RenderResult(const RenderOptions &o) {
    const report::ShellField *field = report::FindShellField(o.result);
    if (field == nullptr)
        throw UsageError("--result: \"" + o.result + "\" is none of N11 N22 N12 M11 M22 M12 Q1 Q2");
    OpenProject(o.file);
    const TankAnswer project = DesignModel(ProjectStem(o.file));
    const consistent::Tank &tank = project.analysis->tank();
    if (tank.panels.find(o.panel) == tank.panels.end())
        throw UsageError("--panel: there are no meshes of panel " + std::to_string(o.panel));
    const consistent::CaseResult &result = ResultOf(project.design, o.kase);
    const report::FlatPanel flat = report::Unfold(tank, o.panel);
    const report::Svg svg =
        report::ContourPicture(flat, report::ValuesOf(flat, result, *field),
                               report::PanelName(tank, o.panel) + ", " + o.result + ", " + o.kase, field->unit);
    const bool vector = o.out.size() > 4 && o.out.compare(o.out.size() - 4, 4, ".svg") == 0;
    WriteWholeFile(o.out, vector ? svg.file() : PngOfSvg(svg.file(), PictureSize(o.size).x / svg.width()));
}

void Render(const RenderOptions &o) {
    OpenProject(o.file);
    RefuseProjectAsTarget(o.file, o.out);
    ResetView();
    IsoView = o.plan ? 0 : 1;
    TakeAngles(o.angles);
    const Pixel size = PictureSize(o.size);
    RasterSurface scr(size.x, size.y);
    Draw(scr, o);
    WriteWholeFile(o.out, scr.png());
}

} // namespace

void AddRenderCommand(CLI::App &parser, Job &job) {
    const auto o = std::make_shared<RenderOptions>();
    CLI::App *command = parser.add_subcommand("render", "draw a project as a PNG picture");
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_option("-o", o->out, "picture to write")->required()->type_name("OUT.png");
    command->add_option("--view", o->view, "plates or mesh; mesh where there is one")
        ->check(CLI::IsMember({"plates", "mesh"}));
    CLI::Option *plan = command->add_flag("--plan", o->plan, "seen from above instead of rotated");
    command->add_option("--angles", o->angles, "first and second rotation, degrees")
        ->type_name("A,B")
        ->capture_default_str()
        ->excludes(plan);
    command->add_option("--size", o->size, "size of the picture, pixels")->type_name("WxH")->capture_default_str();
    CLI::Option *result =
        command->add_option("--result", o->result, "contours of this result: N11 N22 N12 M11 M22 M12 Q1 Q2");
    CLI::Option *kase = command->add_option("--case", o->kase, "of this load case or combination")->type_name("KEY");
    CLI::Option *panel = command->add_option("--panel", o->panel, "on this panel; plates are 1001 and up");
    result->needs(kase)->needs(panel);
    kase->needs(result);
    panel->needs(result);
    command->callback([o, &job] { job = {o->file, [o] { o->result.empty() ? Render(*o) : RenderResult(*o); }}; });
}

} // namespace havuz
