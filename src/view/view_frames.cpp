#include "view/view_frames.h"

#include "model/store.h"

namespace havuz {

static constexpr int kPlateView = 1, kMeshView = 2;
static constexpr int kMeshFrame = 1, kPlateFrame = 2; // Frame (1), Frame (2)

void TakeView(int gorunusModu, ViewWindow &window) {
    const bool changed = GorunusModu != gorunusModu;
    GorunusModu = gorunusModu;
    window.ShowFrame(kPlateFrame, gorunusModu == kPlateView);
    window.ShowFrame(kMeshFrame, gorunusModu == kMeshView);
    if (changed)
        window.ShowViewPicture(gorunusModu);
}

} // namespace havuz
