// Sound mesh: how long pairs of meshes may be along the rim of a free part. Twice the mesh width at most, no longer
// than the line itself, than the distance to the rim across, or than what a sharp corner leaves; from place to place
// the length grows by a part of the distance only. Lengths in m.
#include "mesh/sound_work.h"

#include <cmath>

namespace havuz::sound {

namespace {

constexpr double kGrowth = 0.7;         // of the length by the distance
constexpr double kSharp = 60.0;         // degrees: a smaller corner is sharp
constexpr double kSharpPart = 1.15;     // of the width between the edges of a sharp corner
constexpr double kTowards = 0.2;        // cosine to the inward normal from which a place lies across
constexpr double kHeldPart = 0.8;       // of its length, below which a shared first pair is held no more
constexpr double kSharedPart = 1.2;     // of its length, by which a shared pair limits others
constexpr int kFewest = 5, kMost = 101; // samples of a line

struct RimLine {
    LineKey key;
    int from = 0, to = 0; // corners
    PlanPoint a, b, in;   // ends, and the unit normal to the inside
    bool inner = false;
    double length() const { return PlanDistance(a, b); }
};

struct Sample {
    PlanPoint at;
    double size = 0.0;
    bool held = false;  // the first pair at a sharp corner is not shortened
    bool finer = false; // but by a shared line that is finer than this part would have it
};

std::vector<RimLine> LinesOf(const Model &model, const Part &part) {
    std::vector<RimLine> lines;
    const auto add = [&](int from, int to, bool inner) {
        RimLine line{KeyOf(from, to), from, to, InPlane(part, model.at(from)), InPlane(part, model.at(to)), {}, inner};
        const double length = line.length();
        line.in = {-(line.b.y - line.a.y) / length, (line.b.x - line.a.x) / length};
        lines.push_back(line);
    };
    const int n = Count(part.loop);
    for (int k = 0; k < n; ++k)
        add(At(part.loop, k), At(part.loop, (k + 1) % n), false);
    for (const auto &[a, b] : part.inner)
        add(a, b, true);
    return lines;
}

// Distance from p on a line to another one across the inside, 1e30 when it does not lie across.
double Across(const RimLine &line, PlanPoint p, const RimLine &other) {
    const PlanPoint q = NearestOn(other.a, other.b, p);
    const double d = PlanDistance(p, q);
    const double dot = (q.x - p.x) * line.in.x + (q.y - p.y) * line.in.y;
    const double back = (p.x - q.x) * other.in.x + (p.y - q.y) * other.in.y;
    if (!(line.inner ? std::fabs(dot) > kTowards * d : dot > kTowards * d))
        return 1e30;
    const bool atEnd = PlanDistance(q, other.a) < kJoin || PlanDistance(q, other.b) < kJoin;
    return other.inner || atEnd || back > 0.0 ? d : 1e30;
}

// The angle between two lines that share a corner, in radians, and the corner.
struct Wedge {
    PlanPoint at;
    double angle = 0.0, reach = 0.0; // reach: length of the first pair
};

bool SharpWedge(const RimLine &line, const RimLine &other, double width, Wedge &wedge) {
    const int shared = line.from == other.from || line.from == other.to ? line.from
                       : line.to == other.from || line.to == other.to   ? line.to
                                                                        : -1;
    if (shared < 0)
        return false;
    wedge.at = shared == line.from ? line.a : line.b;
    const PlanPoint p = shared == line.from ? line.b : line.a, q = shared == other.from ? other.b : other.a;
    const double cross = Twice(wedge.at, p, q),
                 dot = (p.x - wedge.at.x) * (q.x - wedge.at.x) + (p.y - wedge.at.y) * (q.y - wedge.at.y);
    wedge.angle = std::atan2(std::fabs(cross), dot);
    wedge.reach = std::min({2.0 * width, line.length(), other.length()});
    const double inward = (q.x - wedge.at.x) * line.in.x + (q.y - wedge.at.y) * line.in.y;
    return wedge.angle < kSharp * std::acos(-1.0) / 180.0 && (line.inner || other.inner || inward > 0.0);
}

void LimitByOthers(const std::vector<RimLine> &lines, const RimLine &line, double width, Sample &sample) {
    for (const RimLine &other : lines) {
        if (&other == &line)
            continue;
        Wedge wedge;
        const bool touches =
            line.from == other.from || line.from == other.to || line.to == other.from || line.to == other.to;
        if (!touches) {
            sample.size = std::min(sample.size, Across(line, sample.at, other));
            continue;
        }
        if (!SharpWedge(line, other, width, wedge))
            continue;
        const double r = PlanDistance(sample.at, wedge.at);
        sample.held = sample.held || r <= wedge.reach;
        sample.size =
            std::min(sample.size, r <= wedge.reach ? wedge.reach : kSharpPart * 2.0 * r * std::sin(wedge.angle / 2.0));
    }
}

// The finer meshes that are wished for at corners.
void LimitByFoot(const std::vector<RimLine> &lines, double foot, Sample &sample) {
    for (const RimLine &line : lines)
        if (!line.inner)
            sample.size = std::min(sample.size, 2.0 * foot + PlanDistance(sample.at, line.a));
}

// The pairs that a shared line has got.
void LimitByShared(const RimLine &line, double t, const Divisions &shared, Sample &sample) {
    const auto found = shared.find(line.key);
    if (found == shared.end())
        return;
    const std::vector<double> &at = found->second;
    const double low = line.from < line.to ? t : 1.0 - t;
    int k = 0;
    while (k + 4 < Count(at) && At(at, k + 2) < low)
        k += 2;
    const double pair = line.length() * (At(at, std::min(k + 2, Count(at) - 1)) - At(at, k));
    sample.finer = pair < kHeldPart * sample.size;
    sample.held = sample.held && !sample.finer;
    sample.size = std::min(sample.size, kSharedPart * pair);
}

} // namespace

std::vector<SizeLine> BoundarySizes(const Model &model, const Part &part, const Wish &wish, const Divisions &shared) {
    const std::vector<RimLine> lines = LinesOf(model, part);
    std::vector<std::vector<Sample>> samples;
    for (const RimLine &line : lines) {
        const int steps =
            static_cast<int>(std::clamp<double>(std::ceil(line.length() / (0.5 * wish.width)), kFewest, kMost));
        std::vector<Sample> &own = samples.emplace_back();
        for (int k = 0; k <= steps; ++k) {
            Sample s{Along(line.a, line.b, k / static_cast<double>(steps))};
            s.size = std::min(2.0 * wish.width, line.length());
            LimitByOthers(lines, line, wish.width, s);
            if (wish.foot > 0.0)
                LimitByFoot(lines, wish.foot, s);
            LimitByShared(line, k / static_cast<double>(steps), shared, s);
            s.size = std::max(s.size, 2.0 * kJoin);
            own.push_back(s);
        }
    }
    std::vector<Sample> all;
    for (const auto &own : samples)
        all.insert(all.end(), own.begin(), own.end());
    std::vector<SizeLine> sizes;
    for (int l = 0; l < Count(lines); ++l) {
        SizeLine size{At(lines, l).key, {}};
        for (const Sample &s : At(samples, l)) {
            double least = s.size;
            for (const Sample &other : all)
                if (!s.held || other.finer)
                    least = std::min(least, other.size + kGrowth * PlanDistance(s.at, other.at));
            size.size.push_back(least);
        }
        if (At(lines, l).from > At(lines, l).to)
            std::reverse(size.size.begin(), size.size.end());
        sizes.push_back(size);
    }
    return sizes;
}

} // namespace havuz::sound
