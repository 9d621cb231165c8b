#include "pool/pool_library.h"

#include "model/arithmetic.h"
#include "model/options.h"
#include "model/parameters.h"
#include "pool/pool_panels.h"

namespace havuz {

double StripDivisions(double width) {
    const double c = Divide(Bk, width, Thing::MeshGenisligi);
    return c < 1.0 ? 1.0 : c;
}

static void SetViewAngles(double a, double b) {
    ViewAngleA = a / 180.0 * kPi;
    ViewAngleB = b / 180.0 * kPi;
}

void GeneratePool(int page, PoolWindow &window) {
    window.ReadPoolForm();
    HavuzTip = page;
    if (page == 1) {
        GenerateRectangularPool(MeshWidth());
        SetViewAngles(-140.0, 20.0);
        window.ComputeExtents();
        window.DrawPlates();
    } else if (page == 2) {
        GenerateCircularPool(MeshWidth());
        SetViewAngles(-140.0, 0.0);
        window.ComputeExtents();
        window.DrawMeshes();
    }
}

} // namespace havuz
