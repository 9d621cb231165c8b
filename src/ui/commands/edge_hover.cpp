#include "ui/commands/edge_hover.h"

#include "mesh/plane_geometry.h"
#include "model/link_code.h"
#include "model/options.h"
#include "ui/window/command_state.h"
#include "view/pick.h"
#include "view/projection.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace havuz {

static constexpr double kEdgeDistance = 5.0, kPointDistance = 7.0; // pixels
static constexpr double kLongestMain = 1000.0;                     // pixels
static constexpr double kInsideSlack = 0.1;                        // pixels
static constexpr double kLevel = 0.1;                              // m
static constexpr double kOnEnd = 0.01;                             // m

void ShowNote(Workbench &bench, const std::string &text, double x, double y) {
    bench.ShowLabel(text, x + 10.0, y > bench.scr().height() - 30.0 ? y : y + 20.0);
}

ScreenPoint PlatePointPixels(int plate, int point) {
    const PlakRecord &record = PlakTable[plate];
    return PlateScreen(record.X[point], record.Y[point], record.Z[point]);
}

ScreenPoint PanelCornerPixels(int panel, int corner) {
    const PanelRecord &record = PanelTable[panel];
    return PlateScreen(record.X[corner], record.Y[corner], record.Z[corner]);
}

double ScreenDirection(double dx, double dy) {
    const double a = std::atan2(-dy, dx);
    return a < 0.0 ? a + 2.0 * kPi : a;
}

bool SeenOnEnd(const PanelRecord &panel) {
    return PlanDistance({panel.X[1], panel.Y[1]}, {panel.X[4], panel.Y[4]}) < kOnEnd;
}

// Panels and plates

static std::vector<ScreenPoint> PanelRing(int panel) {
    std::vector<ScreenPoint> ring;
    for (const int k : {1, 2, 3, 4, 1})
        ring.push_back(PanelCornerPixels(panel, k));
    return ring;
}

static std::vector<ScreenPoint> PlateRing(int plate) {
    std::vector<ScreenPoint> ring;
    for (int k = 1; k <= PlakTable[plate].NoktaSayisi; ++k)
        ring.push_back(PlatePointPixels(plate, k));
    if (!ring.empty())
        ring.push_back(ring.front());
    return ring;
}

static int FindUnder(double x, double y) {
    for (int i = 1; i <= PanelCount; ++i)
        if (RingEncloses(PanelRing(i), x, y, kInsideSlack))
            return i;
    for (int i = 1; i <= PlakCount; ++i)
        if (RingEncloses(PlateRing(i), x, y, kInsideSlack))
            return PlateOwner(i);
    return 0;
}

void PlakAra(Workbench &bench, double x, double y) {
    SelectedPanel = FindUnder(x, y);
    if (SelectedPanel > 0)
        ShowNote(bench, std::to_string(SelectedPanel) + ". PLAK", x, y);
    else
        bench.HideLabel1();
}

// Edges and points

namespace {

// One search: it fills the edge state item by item.
class EdgeSearch {
public:
    EdgeSearch(double x, double y) : x_(x), y_(y) {
        EdgeItems.clear();
        EdgeHitCount = SelectedPanel = SeciliKenar = NoktaModu = 0;
    }

    void look(EdgeItem item, ScreenPoint a, ScreenPoint b) {
        const double length = Distance2(b.x - a.x, b.y - a.y);
        if (length == 0.0)
            return;
        double dist = 0.0;
        NoktaDogruUzaklik({x_, y_}, {a.x, a.y}, {b.x, b.y}, dist);
        const double n1 = Distance2(x_ - a.x, y_ - a.y);
        const double n2 = Distance2(x_ - b.x, y_ - b.y);
        if (CommandState == kEdgeMove && n1 < kPointDistance)
            catchPoint(item, a);
        else if (NoktaModu == 0 && alongEdge(std::max(n1, n2), dist) < length && dist <= kEdgeDistance)
            catchEdge(item, a, b, length);
    }

private:
    // How far along the line the farther end lies.
    static double alongEdge(double farther, double dist) {
        const double square = farther * farther - dist * dist;
        return square > 0.0 ? std::sqrt(square) : 0.0;
    }

    void join(EdgeItem item) {
        EdgeItems.push_back(item);
        if (PickStage == -1)
            FixedItem = item;
    }

    void select(EdgeItem item, ScreenPoint marker) {
        SelectedPanel = item.code;
        SeciliKenar = ItemIsPlate(item.code) ? 0 : item.no;
        EdgeMarkerX = marker.x;
        EdgeMarkerY = marker.y;
    }

    void catchPoint(EdgeItem item, ScreenPoint a) {
        if (NoktaModu == 0)
            EdgeItems.clear();
        NoktaModu = 1;
        join(item);
        select(item, a);
    }

    void catchEdge(EdgeItem item, ScreenPoint a, ScreenPoint b, double length) {
        join(item);
        if (!(length < best_))
            return;
        best_ = length;
        select(item, {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0});
        const double direction = ScreenDirection(b.x - a.x, b.y - a.y);
        const bool stands = (0.785 < direction && direction < 2.35) || (3.92 < direction && direction < 5.49);
        KenarYonu = stands ? 2 : 1;
    }

    double x_, y_;
    double best_ = kLongestMain;
};

// What plan view rules out when the palette asks for upper or lower edges alone.
class PlanFilter {
public:
    explicit PlanFilter(Window &window)
        : active_(!RotatedView() && CommandState == kEdgeMove && window.Checked(kTool3OneSide)),
          upper_(window.Checked(Tool3Option(0))) {}

    bool rulesOut(const PanelRecord &panel) const { return active_ && SeenOnEnd(panel); }

    bool rulesOut(const PanelRecord &panel, int edge) const {
        if (!active_)
            return false;
        const double mean = (panel.Z[1] + panel.Z[2] + panel.Z[3] + panel.Z[4]) / 4.0;
        double off = 0.0;
        for (const int k : {1, 2, 3, 4})
            off = std::max(off, std::fabs(panel.Z[k] - mean));
        if (off < kLevel)
            return false;
        const double a = panel.Z[edge], b = panel.Z[edge % 4 + 1];
        return upper_ ? std::min(a, b) < mean : std::max(a, b) > mean;
    }

private:
    bool active_, upper_;
};

void LookAtPanels(EdgeSearch &search, const PlanFilter &filter) {
    for (int i = 1; i <= PanelCount; ++i) {
        const PanelRecord &panel = PanelTable[i];
        if (filter.rulesOut(panel))
            continue;
        for (int e = 1; e <= 4; ++e)
            if (!filter.rulesOut(panel, e))
                search.look({i, e}, PanelCornerPixels(i, e), PanelCornerPixels(i, e % 4 + 1));
    }
}

void LookAtPlates(EdgeSearch &search) {
    for (int i = 1; i <= PlakCount; ++i) {
        const int n = PlakTable[i].NoktaSayisi;
        for (int k = 1; k <= n; ++k)
            search.look({PlateOwner(i), k}, PlatePointPixels(i, k), PlatePointPixels(i, k % n + 1));
    }
}

// Whether a plate carries a wall's edge along. In plan the top of a wall lies over its foot, and goes with it.
bool Carries(int plate, EdgeItem wall) {
    const PlakRecord &record = PlakTable[plate];
    for (int k = 1; k <= record.NoktaSayisi; ++k) {
        const int code = record.KenarKodu[k];
        if (code > 0 && LinkPanel(code) == wall.code && (LinkEdge(code) == wall.no || !RotatedView()))
            return true;
    }
    return false;
}

void DropCarriedWalls() {
    const std::vector<EdgeItem> all = EdgeItems;
    for (const EdgeItem plate : all)
        if (ItemIsPlate(plate.code))
            std::erase_if(EdgeItems, [plate](EdgeItem item) {
                return !ItemIsPlate(item.code) && Carries(OwnerPlate(plate.code), item);
            });
}

std::string SupportNote() {
    static constexpr const char *kWords[] = {"ust", "sag", "alt", "sol"};
    const bool held = PanelTable[SelectedPanel].KenarMesnet[SeciliKenar] > 0;
    return std::to_string(SelectedPanel) + ". PLAK " + kWords[SeciliKenar - 1] + " kenari " +
           (held ? "<MESNET>" : "<SERBEST>");
}

std::string MoveNote() {
    const std::string what = NoktaModu == 1 ? "NOKTA" : "KENAR";
    return PickStage == -1 ? "SABIT " + what : what + " KAYDIRMA";
}

} // namespace

void KenarAra(Workbench &bench, double x, double y) {
    EdgeSearch search(x, y);
    LookAtPanels(search, PlanFilter(bench.window));
    LookAtPlates(search);
    if (CommandState == kEdgeMove && EdgeItems.size() > 1)
        DropCarriedWalls();
    EdgeHitCount = static_cast<int>(EdgeItems.size());
    if (CommandState == kEdgeMove && EdgeHitCount > 0)
        ShowNote(bench, MoveNote(), x, y);
    else if (CommandState == kEdgeSupport && SeciliKenar > 0)
        ShowNote(bench, SupportNote(), x, y);
    else
        bench.HideLabel1(); // nothing caught, or a plate, which has no supported edges
}

} // namespace havuz
