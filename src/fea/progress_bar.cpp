#include "fea/progress_bar.h"

#include "model/arithmetic.h"

#include <algorithm>
#include <string>

namespace havuz {

namespace {

struct Colour {
    double red, green, blue;
};

// One line a pixel row; each value falls to a third of its start over the height.
void PaintBar(ProgressPicture &picture, const Colour &start, int width) {
    const int height = picture.Height();
    const auto value = [height](double first, int row) {
        return static_cast<int>(first - row * ((first - first / 3.0) / height));
    };
    for (int row = 0; row < height; ++row)
        picture.Line(row, width, value(start.red, row), value(start.green, row), value(start.blue, row));
}

int rememberedTick = 0;

} // namespace

void ProgressBar(double fraction, ProgressPicture &picture) {
    if (fraction > 1.01)
        return;
    const int tick = FloorToWhole(200.0 * fraction);
    if (fraction == 0.0) {
        picture.Clear();
        PaintBar(picture, {240.0, 240.0, 240.0}, picture.Width());
    } else {
        if (tick == rememberedTick)
            return;
        PaintBar(picture, {100.0, 150.0, 240.0}, static_cast<int>(picture.Width() * fraction));
    }
    picture.Label(std::to_string(FloorToWhole(100.0 * std::min(fraction, 1.0))) + "%", fraction >= 0.51);
    rememberedTick = tick;
    picture.ServeEvents();
}

} // namespace havuz
