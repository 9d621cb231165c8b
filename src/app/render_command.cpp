// havuz-cli render: the plate or mesh view of a project as a PNG picture, or the contours of a result over the tank or
// on one panel as PNG or SVG.
#include "app/cli.h"
#include "app/designed_project.h"
#include "app/pictures.h"
#include "app/project.h"
#include "model/number_text.h"
#include "model/options.h"
#include "model/store.h"
#include "model/write_file.h"
#include "report/result_picture.h"
#include "view/mesh_drawing.h"
#include "view/plate_drawing.h"
#include "view/svg_canvas.h"
#include "view/view_state.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace havuz {

namespace {

struct RenderOptions {
    std::string file, out, view, angles = "-140,20", size = "1024x768";
    bool plan = false, rotated = false; // rotated: angles were given
    // contours: key of the result, of the case or of the combination; of steel the face and the direction
    std::string result, kase, combination, face, range;
    int panel = 0, direction = 0;
    bool smooth = false;
    double deform = 0.0;
};

constexpr const char *kSteel = "AS";

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

bool EndsWith(const std::string &text, const char *ending) { return std::filesystem::path(text).extension() == ending; }

// A load case or a combination by its key.
const consistent::CaseResult &ResultOf(const design::Design &design, const RenderOptions &o) {
    const std::string &key = o.kase.empty() ? o.combination : o.kase;
    std::string known;
    for (const auto *list : {&design.cases, &design.combinations})
        for (const consistent::CaseResult &result : *list) {
            if (result.key == key && (o.combination.empty() || list == &design.combinations))
                return result;
            if (o.combination.empty() || list == &design.combinations)
                known += " " + result.key;
        }
    throw UsageError((o.combination.empty() ? "--case: \"" : "--combination: \"") + key + "\" is none of" + known);
}

design::Face FaceOf(const RenderOptions &o) {
    return o.face == "inner" || o.face == "upper" ? design::Face::Inner : design::Face::Outer;
}

// What is asked for, before anything is computed.
const Quantity *CheckResultOptions(const RenderOptions &o) {
    if (!EndsWith(o.out, ".png") && !EndsWith(o.out, ".svg"))
        throw UsageError("-o: \"" + o.out + "\" ends neither with .png nor with .svg");
    if (o.result == kSteel) {
        if (o.face.empty() || o.direction == 0)
            throw UsageError("--result AS: --face and --direction say which bars");
        if (!o.kase.empty() || !o.combination.empty())
            throw UsageError("--result AS: the steel is that of all combinations");
        return nullptr;
    }
    const Quantity *quantity = FindQuantity(o.result);
    if (quantity == nullptr) {
        std::string known;
        for (const Quantity &q : Quantities())
            known += " " + std::string(q.key);
        throw UsageError("--result: \"" + o.result + "\" is none of" + known + " AS");
    }
    if (!o.face.empty() || o.direction != 0)
        throw UsageError("--face and --direction go with --result AS");
    if (o.kase.empty() == o.combination.empty())
        throw UsageError("--result: --case or --combination says of what");
    return quantity;
}

SceneStyle StyleOf(const RenderOptions &o) {
    SceneStyle style;
    style.smooth = o.smooth;
    style.deformation = o.deform;
    if (o.range.empty())
        return style;
    style.range = TwoNumbers(o.range, ',');
    if (!style.range || !(style.range->first < style.range->second))
        throw UsageError("--range: \"" + o.range + "\" is not LOW,HIGH");
    return style;
}

// Plan or rotated as the other views; a panel by itself lies flat unless one of these is asked for.
PictureChoice ChoiceOf(const RenderOptions &o, const consistent::Tank &tank) {
    if (o.panel != 0 && tank.panels.find(o.panel) == tank.panels.end())
        throw UsageError("--panel: there are no meshes of panel " + std::to_string(o.panel));
    return {o.plan ? SceneLook::Plan : o.panel != 0 && !o.rotated ? SceneLook::Flat : SceneLook::Rotated, o.panel};
}

ResultScene SceneToDraw(const RenderOptions &o, const Quantity *quantity, const TankAnswer &answer) {
    const PictureChoice choice = ChoiceOf(o, answer.tank);
    const std::string of = o.panel == 0 ? "" : ", " + PanelWords(answer.tank.panels.at(o.panel));
    if (quantity == nullptr) {
        ResultScene scene = SceneOfSteel(answer.tank, answer.design.steel, FaceOf(o), o.direction, choice);
        scene.title = "Gerekli donatı As, " + o.face + ", " + std::to_string(o.direction) + of;
        return scene;
    }
    const consistent::CaseResult &result = ResultOf(answer.design, o);
    ResultScene scene = SceneOf(*answer.analysis, result, *quantity, choice);
    scene.title = std::string(quantity->turkish) + ", " + result.key + of;
    return scene;
}

void RenderResult(const RenderOptions &o) {
    const Quantity *quantity = CheckResultOptions(o);
    const SceneStyle style = StyleOf(o);
    const Pixel size = PictureSize(o.size);
    OpenProject(o.file);
    RefuseProjectAsTarget(o.file, o.out);
    ResetView();
    TakeAngles(o.angles);
    const ResultScene scene = SceneToDraw(o, quantity, DesignModel(ProjectStem(o.file)));
    const SceneTransform to = FitScene(scene, size.x, size.y);
    if (EndsWith(o.out, ".svg")) {
        SvgCanvas canvas(size.x, size.y, scene.look == SceneLook::Flat);
        DrawScene(canvas, scene, style, to);
        WriteWholeFile(o.out, canvas.document(scene.title));
        return;
    }
    WriteWholeFile(o.out, Pictures().pngOfResult(size.x, size.y,
                                                 [&](ResultCanvas &canvas) { DrawScene(canvas, scene, style, to); }));
}

void Render(const RenderOptions &o) {
    OpenProject(o.file);
    RefuseProjectAsTarget(o.file, o.out);
    ResetView();
    IsoView = o.plan ? 0 : 1;
    TakeAngles(o.angles);
    const Pixel size = PictureSize(o.size);
    const std::unique_ptr<PictureSurface> scr = Pictures().surface(size.x, size.y);
    Draw(*scr, o);
    WriteWholeFile(o.out, scr->png());
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
    CLI::Option *angles = command->add_option("--angles", o->angles, "first and second rotation, degrees")
                              ->type_name("A,B")
                              ->capture_default_str()
                              ->excludes(plan);
    command->add_option("--size", o->size, "size of the picture, pixels")->type_name("WxH")->capture_default_str();
    CLI::Option *result = command->add_option(
        "--result", o->result,
        "contours, .png or .svg: UX UY UZ U N11 N22 N12 M11 M22 M12 MI MII Q1 Q2 SOIL, or AS, the steel asked for");
    CLI::Option *kase = command->add_option("--case", o->kase, "of this load case (or combination)")->type_name("KEY");
    command->add_option("--combination", o->combination, "of this combination")->type_name("KEY")->excludes(kase);
    command->add_option("--panel", o->panel, "of this panel alone, laid flat; plates are 1001 and up");
    command->add_option("--face", o->face, "with AS: inner or outer; upper or lower of slabs")
        ->check(CLI::IsMember({"inner", "outer", "upper", "lower"}));
    command->add_option("--direction", o->direction, "with AS: bars along 1 or 2")->check(CLI::IsMember({1, 2}));
    command->add_flag("--smooth", o->smooth, "without bands");
    command->add_option("--range", o->range, "least and greatest colour, in the unit shown")->type_name("LOW,HIGH");
    command->add_option("--deform", o->deform, "displacements drawn, times this factor")->capture_default_str();
    for (const char *name :
         {"--case", "--combination", "--panel", "--face", "--direction", "--smooth", "--range", "--deform"})
        command->get_option(name)->needs(result);
    command->callback([o, angles, &job] {
        o->rotated = angles->count() > 0;
        job = {o->file, [o] { o->result.empty() ? Render(*o) : RenderResult(*o); }};
    });
}

} // namespace havuz
