#include "view/redraw.h"

#include "model/store.h"
#include "view/mesh_drawing.h"
#include "view/plate_drawing.h"

namespace havuz {

void Redraw(Surface &scr, ViewWindow &window) {
    if (GorunusModu == 1)
        DrawPlateView(scr, window);
    else if (GorunusModu == 2)
        DrawMeshView(scr, window);
}

} // namespace havuz
