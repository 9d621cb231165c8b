#include "view/result_scene.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace havuz {

ScenePlace ProjectScene(SceneLook look, const SpacePoint &p) {
    switch (look) {
    case SceneLook::Plan:
        return {p.x, p.y, -p.z};
    case SceneLook::Flat:
        return {p.x, -p.y, 0.0};
    case SceneLook::Rotated:
        break;
    }
    ScenePlace place;
    ProjectToView(p.x, p.y, p.z, place.x, place.y, place.depth);
    return place;
}

SceneTransform FitScene(const ResultScene &scene, double width, double height) {
    constexpr double kMargin = 30.0, kTop = 48.0, kLegend = 130.0;
    constexpr double kFar = std::numeric_limits<double>::infinity();
    double left = kFar, right = -kFar, top = kFar, bottom = -kFar;
    for (const ResultFace &face : scene.faces)
        for (const SpacePoint &p : face.at) {
            const ScenePlace at = ProjectScene(scene.look, p);
            left = std::min(left, at.x), right = std::max(right, at.x);
            top = std::min(top, at.y), bottom = std::max(bottom, at.y);
        }
    if (!(right >= left))
        return {};
    const double roomX = std::max(width - kLegend - 2.0 * kMargin, 1.0);
    const double roomY = std::max(height - kTop - kMargin, 1.0);
    const double acrossScale = right > left ? roomX / (right - left) : kFar;
    const double downScale = bottom > top ? roomY / (bottom - top) : kFar;
    const double fitted = std::min(acrossScale, downScale);
    const double scale = std::isfinite(fitted) ? fitted : 1.0;
    return {scale, kMargin + roomX / 2.0 - scale * (left + right) / 2.0,
            kTop + roomY / 2.0 - scale * (top + bottom) / 2.0};
}

std::optional<SceneExtremes> ExtremesOf(const ResultScene &scene) {
    std::optional<SceneExtremes> e;
    for (std::size_t f = 0; f < scene.faces.size(); ++f)
        for (std::size_t k = 0; k < 4 && scene.faces[f].hasValue; ++k) {
            const double v = scene.faces[f].value[k];
            if (!e)
                e = {{v, f, k}, {v, f, k}};
            if (v < e->least.value)
                e->least = {v, f, k};
            if (v > e->greatest.value)
                e->greatest = {v, f, k};
        }
    return e;
}

double UsualDeformation(const ResultScene &scene) {
    constexpr double kShare = 0.1;
    SpacePoint low = scene.faces.empty() ? SpacePoint{} : scene.faces[0].at[0], high = low;
    double most = 0.0;
    for (const ResultFace &face : scene.faces)
        for (std::size_t k = 0; k < 4; ++k) {
            const SpacePoint &p = face.at[k];
            low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
            most = std::max(most, Length(face.moved[k]));
        }
    const double size = std::max({high.x - low.x, high.y - low.y, high.z - low.z});
    return most > 0.0 ? kShare * size / most : 0.0;
}

ColourMap MapOf(const ResultScene &scene, const SceneStyle &style) {
    if (style.range) {
        const auto [low, high] = *style.range;
        constexpr int kBands = 10;
        return {scene.isSigned ? ScaleKind::Diverging : ScaleKind::Rising, low, high, style.smooth ? 0 : kBands};
    }
    const std::optional<SceneExtremes> e = ExtremesOf(scene);
    return RoundMap(e ? e->least.value : 0.0, e ? e->greatest.value : 0.0, scene.isSigned, style.smooth);
}

namespace {

SpacePoint CornerPlace(const ResultFace &face, std::size_t k, double deformation) {
    const SpacePoint &p = face.at[k], &m = face.moved[k];
    return {p.x + deformation * m.x, p.y + deformation * m.y, p.z + deformation * m.z};
}

struct TrianglePlace {
    std::array<ScenePlace, 3> at;
    std::array<double, 3> value;
};

// Weights of the corners at a point, none outside.
std::optional<std::array<double, 3>> WeightsAt(const TrianglePlace &t, double x, double y) {
    const auto &[a, b, c] = t.at;
    const double area = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
    if (area == 0.0)
        return std::nullopt;
    const double wb = ((x - a.x) * (c.y - a.y) - (c.x - a.x) * (y - a.y)) / area;
    const double wc = ((b.x - a.x) * (y - a.y) - (x - a.x) * (b.y - a.y)) / area;
    const double wa = 1.0 - wb - wc;
    if (wa < 0.0 || wb < 0.0 || wc < 0.0)
        return std::nullopt;
    return std::array{wa, wb, wc};
}

double Mean(const std::array<double, 4> &v) { return (v[0] + v[1] + v[2] + v[3]) / 4.0; }

} // namespace

std::optional<SceneHit> HitScene(const ResultScene &scene, const SceneTransform &to, double deformation, double px,
                                 double py) {
    const double x = (px - to.x) / to.scale, y = (py - to.y) / to.scale;
    std::optional<SceneHit> hit;
    double nearest = 0.0;
    for (std::size_t f = 0; f < scene.faces.size(); ++f) {
        const ResultFace &face = scene.faces[f];
        std::array<SpacePoint, 5> p;
        std::array<double, 5> v{};
        for (std::size_t k = 0; k < 4; ++k) {
            p[k] = CornerPlace(face, k, deformation);
            v[k] = face.value[k];
        }
        p[4] = Along(Along(p[0], p[1], 0.5), Along(p[2], p[3], 0.5), 0.5);
        v[4] = Mean(face.value);
        for (std::size_t k = 0; k < 4; ++k) {
            const std::array<std::size_t, 3> corner = {k, (k + 1) % 4, 4};
            TrianglePlace t{};
            for (std::size_t i = 0; i < 3; ++i)
                t.at[i] = ProjectScene(scene.look, p[corner[i]]);
            const auto w = WeightsAt(t, x, y);
            if (!w)
                continue;
            double depth = 0.0, value = 0.0;
            SpacePoint at;
            for (std::size_t i = 0; i < 3; ++i) {
                depth += (*w)[i] * t.at[i].depth;
                value += (*w)[i] * v[corner[i]];
                const SpacePoint &q = p[corner[i]];
                at = {at.x + (*w)[i] * q.x, at.y + (*w)[i] * q.y, at.z + (*w)[i] * q.z};
            }
            if (!hit || depth < nearest) {
                hit = {f, value, at};
                nearest = depth;
            }
        }
    }
    return hit;
}

int CornerNear(const ResultScene &scene, const SceneTransform &to, double deformation, std::size_t face, ScreenPoint at,
               double reach) {
    int corner = 0;
    for (std::size_t k = 0; k < 4; ++k) {
        const ScenePlace p = ProjectScene(scene.look, CornerPlace(scene.faces[face], k, deformation));
        const double far = std::hypot(to.x + to.scale * p.x - at.x, to.y + to.scale * p.y - at.y);
        if (far <= reach) {
            reach = far;
            corner = static_cast<int>(k) + 1;
        }
    }
    return corner;
}

std::string DecimalCommaText(double value, int decimals) {
    char text[400];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
    std::string s(text, end);
    if (s.find_first_of("123456789") == std::string::npos && s[0] == '-')
        s.erase(0, 1);
    std::replace(s.begin(), s.end(), '.', ',');
    return s;
}

} // namespace havuz
