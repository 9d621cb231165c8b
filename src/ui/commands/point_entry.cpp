#include "ui/commands/point_entry.h"

#include "model/field_reader.h"
#include "model/number_text.h"
#include "model/options.h"
#include "ui/commands/pointer.h"
#include "ui/commands/pointer_commands.h"
#include "ui/window/command_state.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace havuz {

namespace {

// From the side of the mesh view for its own commands, else of the plate view.
struct Plan {
    double scale, offsetX, offsetY;
    ScreenPoint pixels(PlanPoint m) const { return {offsetX + scale * m.x, offsetY + scale * m.y}; }
    PlanPoint model(ScreenPoint p) const { return {(p.x - offsetX) / scale, (p.y - offsetY) / scale}; }
};

Plan PlanNow() {
    return GorunusModu == 2 ? Plan{MeshScale, MeshOffsetX, MeshOffsetY} : Plan{PlateScale, PlateOffsetX, PlateOffsetY};
}

// Where the point before lies, in pixels.
ScreenPoint LastPoint(Workbench &bench) {
    if ((CommandState == kPanelCopy || CommandState == kPanelMove) && PickStage == 2) {
        const LineEnds first = bench.window.Line(RubberLine(1));
        return {first.x1, first.y1};
    }
    return {AnchorX, AnchorY};
}

std::optional<double> Number(std::string text) {
    std::replace(text.begin(), text.end(), ',', '.');
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    const auto number = ReadNumberField(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<PlanPoint> Parse(std::string text, PlanPoint last) {
    const bool relative = !text.empty() && text[0] == '@';
    if (relative)
        text.erase(0, 1);
    const std::size_t polar = text.find('<'), between = relative && polar != std::string::npos ? polar : text.find(';');
    if (between == std::string::npos)
        return {};
    const auto a = Number(text.substr(0, between)), b = Number(text.substr(between + 1));
    if (!a || !b)
        return {};
    if (between == polar)
        return PlanPoint{last.x + *a * std::cos(*b * kPi / 180.0), last.y + *a * std::sin(*b * kPi / 180.0)};
    return relative ? PlanPoint{last.x + *a, last.y + *b} : PlanPoint{*a, *b};
}

} // namespace

bool AwaitsPoint() {
    if (IsoView == 1)
        return false;
    switch (ZoomPending > 0 ? -1 : CommandState) {
    case -1: // the corners of a zoom
    case kVerticalPlate:
    case kPolygon:
    case kPolygonCut:
        return true;
    case kPanelCopy:
    case kPanelMove:
    case kNodeMove:
        return PickStage > 0;
    default:
        return false;
    }
}

void PlaceTypedPoint(Workbench &bench) {
    const std::string text = bench.window.Text(kPointEntry);
    const Plan plan = PlanNow();
    const auto point = plan.scale > 0.0 ? Parse(text, plan.model(LastPoint(bench))) : std::nullopt;
    if (!point)
        return bench.Prompt("NOKTA ANLASILMADI: " + text + " (8,5;3 veya @2;0 veya @3<90)");
    const ScreenPoint p = plan.pixels(*point);
    bench.window.SetText(kPointEntry, "");
    bench.window.Focus(kScr);
    SnapsToCorners = 0;
    try {
        OnSurfaceMove(bench, 0, 0, p.x, p.y);
        OnSurfacePress(bench, kLeftButton, 0, p.x, p.y);
    } catch (...) {
        SnapsToCorners = 1;
        throw;
    }
    SnapsToCorners = 1;
    if (ZoomPending == 0 && GorunusModu == 1)
        ShowSnapNote(bench, AwaitsPoint() ? point : std::nullopt);
}

bool OnSurfaceKey(Workbench &bench, Key key) {
    if ((key != Key::Enter && key != Key::Escape) || ZoomPending + CommandState == kIdle)
        return false;
    OnSurfaceRelease(bench, kRightButton, 0, AnchorX, AnchorY);
    return true;
}

bool OnEntryKey(Workbench &bench, Key key) {
    if (key == Key::Enter && bench.window.Text(kPointEntry).empty())
        return OnSurfaceKey(bench, key);
    if (key == Key::Enter) {
        PlaceTypedPoint(bench);
        return true;
    }
    if (key != Key::Escape)
        return false;
    bench.window.SetText(kPointEntry, "");
    bench.window.Focus(kScr);
    return true;
}

} // namespace havuz
