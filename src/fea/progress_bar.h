// The progress display of the analysis.
#pragma once

#include "fea/analysis_window.h"

namespace havuz {

// Paints a bar of the fraction 0..1 with a centred percent label, at most 200 times a run, and serves pending events
// once. A fraction above 1.01 does nothing; exactly 0 begins anew with an empty bar.
void ProgressBar(double fraction, ProgressPicture &picture);

} // namespace havuz
