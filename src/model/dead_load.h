// The dead load that a slab or wall brings by its own weight.
#pragma once

namespace havuz {

// Dead area load of a panel of thickness t cm, t/m2 (concrete at 2.5 t/m3).
inline double PanelDeadLoad(double t) { return (t / 100.0) * 2.5; }

} // namespace havuz
