#include "report/steel_drawing.h"

#include "design/number_words.h"
#include "design/worked.h"
#include "report/result_picture.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace havuz {

using consistent::Tank;
using design::Face;
using design::SteelRow;
using design::Zone;

namespace {

constexpr Colour kInk = {0x202020}, kBar = {0x10406E}, kBad = {0xB01020}, kThin = {0x808080}, kChosen = {0xE08A00};
constexpr double kSmall = 11.0, kTitle = 13.0, kSame = 1e-3; // m: places that are one

using Ring = std::array<SpacePoint, 4>;

struct Interval {
    double from = 0.0, to = 0.0;
    double length() const { return to - from; }
};

// A coordinate of a point: the one along the bars, or the one across them.
double Coordinate(const SpacePoint &p, bool first) { return first ? p.x : p.y; }

Interval Reach(const Ring &ring, bool first) {
    Interval r{Coordinate(ring[0], first), Coordinate(ring[0], first)};
    for (const SpacePoint &p : ring) {
        r.from = std::min(r.from, Coordinate(p, first));
        r.to = std::max(r.to, Coordinate(p, first));
    }
    return r;
}

// Where the line `other = at` runs through the meshes, without breaks.
std::vector<Interval> Through(const std::vector<Ring> &meshes, bool first, double at) {
    std::vector<Interval> pieces;
    for (const Ring &ring : meshes)
        if (const Interval side = Reach(ring, !first); side.from < at && at < side.to)
            pieces.push_back(Reach(ring, first));
    std::sort(pieces.begin(), pieces.end(), [](const Interval &a, const Interval &b) { return a.from < b.from; });
    std::vector<Interval> whole;
    for (const Interval &p : pieces)
        if (!whole.empty() && p.from <= whole.back().to + kSame)
            whole.back().to = std::max(whole.back().to, p.to);
        else
            whole.push_back(p);
    return whole;
}

double Longest(const std::vector<Interval> &all) {
    double longest = 0.0;
    for (const Interval &i : all)
        longest = std::max(longest, i.length());
    return longest;
}

// Across the zone at its longest; of many such lines the one in their middle.
double BestLine(const std::vector<Ring> &meshes, bool first) {
    std::vector<double> lines;
    double longest = 0.0;
    for (const Ring &ring : meshes) {
        const Interval side = Reach(ring, !first);
        const double at = (side.from + side.to) / 2.0, length = Longest(Through(meshes, first, at));
        if (length > longest * (1.0 + kSame)) {
            longest = length;
            lines.clear();
        }
        if (length > longest * (1.0 - kSame))
            lines.push_back(at);
    }
    std::sort(lines.begin(), lines.end());
    return lines[lines.size() / 2];
}

std::vector<SteelBar> StraightBars(const std::vector<Ring> &meshes, bool first) {
    constexpr double kWorthDrawing = .3; // of the longest
    const double at = BestLine(meshes, first);
    const std::vector<Interval> all = Through(meshes, first, at);
    const auto point = [first](double along, double across) {
        return first ? SpacePoint{along, across, 0.0} : SpacePoint{across, along, 0.0};
    };
    std::vector<SteelBar> bars;
    for (const Interval &i : all) {
        if (i.length() < kWorthDrawing * Longest(all))
            continue;
        const double middle = i.from + .42 * i.length(); // off the middle: the words stand there
        SteelBar bar{{point(i.from, at), point(i.to, at)}, {}, i.length()};
        for (const Interval &spread : Through(meshes, !first, middle))
            if (spread.from < at && at < spread.to)
                bar.across = {point(middle, spread.from), point(middle, spread.to)};
        bars.push_back(bar);
    }
    return bars;
}

// Floors and strips of a circular pool: 1 runs around, 2 outward.
std::vector<SteelBar> RoundBars(const Tank &tank, const std::vector<Ring> &meshes, bool around) {
    constexpr double kFrom = -2.2, kTo = -0.9, kPieces = 24.0; // rad: the lower part of the picture
    Interval r{std::numeric_limits<double>::infinity(), 0.0};
    for (const Ring &ring : meshes)
        for (const SpacePoint &p : ring) {
            const double d = std::hypot(p.x - tank.centre.x, p.y - tank.centre.y);
            r.from = std::min(r.from, d), r.to = std::max(r.to, d);
        }
    const auto point = [&](double radius, double angle) {
        return SpacePoint{tank.centre.x + radius * std::cos(angle), tank.centre.y + radius * std::sin(angle), 0.0};
    };
    const double middle = (r.from + r.to) / 2.0, angle = (kFrom + kTo) / 2.0;
    std::vector<SpacePoint> arc;
    for (double k = 0.0; k <= kPieces; k += 1.0)
        arc.push_back(point(middle, kFrom + (kTo - kFrom) * k / kPieces));
    const std::vector<SpacePoint> ray = {point(r.from, angle), point(r.to, angle)};
    return {around ? SteelBar{arc, ray, 2.0 * std::acos(-1.0) * middle} : SteelBar{ray, arc, r.length()}};
}

SpacePoint MiddleOf(const Ring &r) { return Along(Along(r[0], r[1], .5), Along(r[2], r[3], .5), .5); }

} // namespace

std::vector<SteelZone> ZonesOf(const Tank &tank, const std::vector<SteelRow> &rows, int panel, Face face,
                               int direction) {
    const ResultScene flat = SceneOfSteel(tank, rows, face, direction, {SceneLook::Flat, panel});
    const std::vector<design::MeshPlace> places = design::FindPlaces(tank);
    std::map<Zone, SteelZone> zones;
    std::map<int, Zone> zoneOfMesh;
    for (std::size_t i = 0; i < places.size(); ++i)
        zoneOfMesh[tank.meshes[i].mesh] = places[i].zone[static_cast<std::size_t>(direction - 1)];
    for (std::size_t r = 0; r < rows.size(); ++r)
        if (rows[r].panel == panel && rows[r].face == face && rows[r].direction == direction) {
            zones[rows[r].zone].row = r;
            zones[rows[r].zone].zone = rows[r].zone;
        }
    for (const ResultFace &f : flat.faces) {
        const auto found = zones.find(zoneOfMesh.at(f.mesh));
        if (found == zones.end())
            continue;
        found->second.meshes.push_back(f.at);
        if (rows[found->second.row].layer.governs.mesh == f.mesh) {
            found->second.governs = MiddleOf(f.at);
            found->second.hasPlace = true;
        }
    }
    const bool round = tank.circular && tank.panels.at(panel).kind != 1;
    std::vector<SteelZone> list;
    for (auto &[name, zone] : zones) {
        if (zone.meshes.empty())
            continue;
        zone.bars = round ? RoundBars(tank, zone.meshes, direction == 1) : StraightBars(zone.meshes, direction == 1);
        list.push_back(std::move(zone));
    }
    return list;
}

SteelDrawing::SteelDrawing(const Tank &tank, const std::vector<SteelRow> &rows, int panel, double width, double height)
    : rows_(rows) {
    for (const Face face : {Face::Inner, Face::Outer})
        for (const int direction : {1, 2}) {
            Cell cell{
                face, direction, direction == 1 ? 0.0 : width / 2.0,         face == Face::Inner ? 0.0 : height / 2.0,
                {},   1.0,       ZonesOf(tank, rows, panel, face, direction)};
            fit(cell, width / 2.0, height / 2.0);
            cells_.push_back(std::move(cell));
        }
}

void SteelDrawing::fit(Cell &cell, double width, double height) const {
    constexpr double kSide = 16.0, kAbove = 30.0, kBelow = 12.0;
    Interval x{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}, y = x;
    for (const SteelZone &zone : cell.zones)
        for (const Ring &ring : zone.meshes) {
            const Interval u = Reach(ring, true), v = Reach(ring, false);
            x = {std::min(x.from, u.from), std::max(x.to, u.to)};
            y = {std::min(y.from, v.from), std::max(y.to, v.to)};
        }
    if (!(x.to > x.from) || !(y.to > y.from))
        return;
    const double roomX = std::max(width - 2.0 * kSide, 1.0), roomY = std::max(height - kAbove - kBelow, 1.0);
    constexpr double kLow = .55; // of the room: what is drawn lower is stretched
    const double scale = std::min(roomX / x.length(), roomY / y.length());
    cell.stretch = std::max(1.0, kLow * roomY / (scale * y.length()));
    cell.to = {scale, cell.left + kSide + (roomX - scale * x.length()) / 2.0 - scale * x.from,
               cell.top + kAbove + (roomY - scale * cell.stretch * y.length()) / 2.0 + scale * cell.stretch * y.to};
}

void SteelDrawing::draw(ResultCanvas &canvas, int chosen) const {
    for (const Cell &cell : cells_)
        drawCell(canvas, cell, chosen);
}

void SteelDrawing::drawCell(ResultCanvas &canvas, const Cell &cell, int chosen) const {
    if (cell.zones.empty())
        return;
    const SteelRow &any = rows_[cell.zones.front().row];
    const std::string way = any.kind == 1 ? (cell.direction == 1 ? "yatay donatı (1)" : "düşey donatı (2)")
                                          : std::to_string(cell.direction) + " doğrultusunda donatı";
    canvas.Text({cell.left + 16.0, cell.top + 18.0},
                std::string(TurkishFaceName(any)) + " yüz, " + way +
                    (cell.stretch > 1.0 ? ", yüksekliği büyütülmüş" : ""),
                TextAlign::Left, kTitle, kInk);
    for (const SteelZone &zone : cell.zones) // the chosen one last: its frame lies over the others
        if (static_cast<int>(zone.row) != chosen)
            drawZone(canvas, cell, zone, false);
    for (const SteelZone &zone : cell.zones)
        if (static_cast<int>(zone.row) == chosen)
            drawZone(canvas, cell, zone, true);
    drawBars(canvas, cell);
}

// The sides that one mesh of the zone alone has.
static std::vector<std::pair<SpacePoint, SpacePoint>> Border(const std::vector<Ring> &meshes) {
    const auto key = [](const SpacePoint &p) { return std::pair{std::lround(p.x / kSame), std::lround(p.y / kSame)}; };
    using Key = std::pair<long, long>;
    std::map<std::pair<Key, Key>, std::vector<std::pair<SpacePoint, SpacePoint>>> sides;
    for (const Ring &ring : meshes)
        for (std::size_t k = 0; k < 4; ++k) {
            const SpacePoint a = ring[k], b = ring[(k + 1) % 4];
            sides[std::minmax(key(a), key(b))].emplace_back(a, b);
        }
    std::vector<std::pair<SpacePoint, SpacePoint>> border;
    for (const auto &[ends, uses] : sides)
        if (uses.size() == 1)
            border.push_back(uses.front());
    return border;
}

void SteelDrawing::drawZone(ResultCanvas &canvas, const Cell &cell, const SteelZone &zone, bool chosen) const {
    constexpr Colour kTint[] = {{0xF3E6DA}, {0xF7F7F2}, {0xE3ECF5}, {0xE6F0E1}}; // foot, span, corner, top
    const SteelRow &row = rows_[zone.row];
    for (const Ring &ring : zone.meshes) {
        std::array<ScreenPoint, 4> at{};
        for (std::size_t k = 0; k < 4; ++k)
            at[k] = cell.at(ring[k]);
        canvas.Fill(at, row.met() ? kTint[static_cast<std::size_t>(zone.zone)] : Colour{0xF9D3CE});
    }
    for (const auto &[a, b] : Border(zone.meshes))
        canvas.Line(cell.at(a), cell.at(b), chosen ? kChosen : kThin, chosen ? 3.0 : 1.0);
    if (!chosen || !zone.hasPlace)
        return;
    constexpr double kArm = 5.0;
    const ScreenPoint p = cell.at(zone.governs);
    canvas.Line({p.x - kArm, p.y - kArm}, {p.x + kArm, p.y + kArm}, kChosen, 2.0);
    canvas.Line({p.x - kArm, p.y + kArm}, {p.x + kArm, p.y - kArm}, kChosen, 2.0);
}

static void DrawLine(ResultCanvas &canvas, const std::vector<ScreenPoint> &line, Colour colour, double width) {
    for (std::size_t i = 1; i < line.size(); ++i)
        canvas.Line(line[i - 1], line[i], colour, width);
}

// A short stroke across the end of a bar.
static void DrawEnd(ResultCanvas &canvas, ScreenPoint end, ScreenPoint before, Colour colour) {
    constexpr double kHalf = 5.0;
    const double dx = end.x - before.x, dy = end.y - before.y, length = std::hypot(dx, dy);
    if (length > 0.0)
        canvas.Line({end.x - kHalf * dy / length, end.y + kHalf * dx / length},
                    {end.x + kHalf * dy / length, end.y - kHalf * dx / length}, colour, 2.0);
}

// What bars are spread over: a thin line with slanting strokes at its ends.
static void DrawSpread(ResultCanvas &canvas, const std::vector<ScreenPoint> &line) {
    constexpr double kHalf = 4.0;
    DrawLine(canvas, line, kThin, 1.0);
    if (line.size() > 1)
        for (const ScreenPoint &end : {line.front(), line.back()})
            canvas.Line({end.x - kHalf, end.y + kHalf}, {end.x + kHalf, end.y - kHalf}, kInk, 1.5);
}

namespace {

// Words beside a bar, two lines: what it is, and its zone.
struct BarWords {
    std::string bars, zone;
    Colour colour;
    ScreenPoint at;
    TextAlign align = TextAlign::Centre;

    double wide() const {
        return .58 * std::max(kTitle * static_cast<double>(bars.size()), kSmall * static_cast<double>(zone.size()));
    }
    double left() const { return align == TextAlign::Centre ? at.x - wide() / 2.0 : at.x; }
    bool covers(const BarWords &other) const {
        constexpr double kHigh = 32.0;
        return left() < other.left() + other.wide() && other.left() < left() + wide() &&
               std::fabs(at.y - other.at.y) < kHigh;
    }
};

// A place on a line, t from 0 to 1.
ScreenPoint PlaceOn(const std::vector<ScreenPoint> &line, double t) {
    const double at = t * static_cast<double>(line.size() - 1);
    const auto i = std::min(static_cast<std::size_t>(at), line.size() - 2);
    const double rest = at - static_cast<double>(i);
    return {line[i].x + rest * (line[i + 1].x - line[i].x), line[i].y + rest * (line[i + 1].y - line[i].y)};
}

// Beside the bar where no other words stand: its middle first.
void PlaceWords(BarWords &words, const std::vector<ScreenPoint> &along, const std::vector<BarWords> &others) {
    const bool lies = std::fabs(along.back().x - along.front().x) >= std::fabs(along.back().y - along.front().y);
    words.align = lies ? TextAlign::Centre : TextAlign::Left;
    for (const double t : {.5, .3, .7, .18, .82, .5}) {
        const ScreenPoint p = PlaceOn(along, t);
        words.at = lies ? p : ScreenPoint{p.x + 7.0, p.y + 2.0};
        if (std::none_of(others.begin(), others.end(), [&](const BarWords &o) { return o.covers(words); }))
            return;
    }
}

BarWords WordsOf(const SteelBar &bar, const SteelRow &row, const std::vector<ScreenPoint> &along) {
    const std::string size = design::Turkish(bar.length, 2) + " m";
    BarWords words{BarsText(row.layer.bars) + (row.met() ? "" : " !"),
                   std::string(TurkishNameOf(row.zone)) + ", " + size,
                   row.met() ? kBar : kBad,
                   {}};
    const double room = std::fabs(along.back().x - along.front().x), high = std::fabs(along.back().y - along.front().y);
    if (room > high && words.wide() > room)
        words.zone = size;
    return words;
}

} // namespace

void SteelDrawing::drawBars(ResultCanvas &canvas, const Cell &cell) const {
    std::vector<BarWords> all;
    const auto placed = [&](const std::vector<SpacePoint> &line) {
        std::vector<ScreenPoint> at;
        for (const SpacePoint &p : line)
            at.push_back(cell.at(p));
        return at;
    };
    std::vector<std::pair<const SteelBar *, const SteelRow *>> bars;
    for (const SteelZone &zone : cell.zones)
        for (const SteelBar &bar : zone.bars)
            bars.emplace_back(&bar, &rows_[zone.row]);
    std::stable_sort(bars.begin(), bars.end(), [](const auto &a, const auto &b) { // the short ones have the least room
        return a.first->length < b.first->length;
    });
    for (const auto &[bar, row] : bars) {
        const std::vector<ScreenPoint> along = placed(bar->along);
        BarWords words = WordsOf(*bar, *row, along);
        DrawSpread(canvas, placed(bar->across));
        DrawLine(canvas, along, words.colour, 2.5);
        DrawEnd(canvas, along.front(), along[1], words.colour);
        DrawEnd(canvas, along.back(), along[along.size() - 2], words.colour);
        PlaceWords(words, along, all);
        all.push_back(words);
    }
    for (const BarWords &w : all) {
        canvas.Text({w.at.x, w.at.y - 4.0}, w.bars, w.align, kTitle, w.colour);
        canvas.Text({w.at.x, w.at.y + 13.0}, w.zone, w.align, kSmall, kInk);
    }
}

// Even or odd crossings of a ray to the right.
static bool Holds(const std::array<ScreenPoint, 4> &ring, double x, double y) {
    bool inside = false;
    for (std::size_t k = 0; k < 4; ++k) {
        const ScreenPoint a = ring[k], b = ring[(k + 1) % 4];
        if ((a.y > y) != (b.y > y) && x < a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x))
            inside = !inside;
    }
    return inside;
}

int SteelDrawing::rowAt(double x, double y) const {
    for (const Cell &cell : cells_)
        for (const SteelZone &zone : cell.zones)
            for (const Ring &ring : zone.meshes)
                if (Holds({cell.at(ring[0]), cell.at(ring[1]), cell.at(ring[2]), cell.at(ring[3])}, x, y))
                    return static_cast<int>(zone.row);
    return -1;
}

} // namespace havuz
