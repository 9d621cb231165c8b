#include "ui/raporcu/caught.h"

#include "consistent/failure.h"
#include "design/failure.h"
#include "model/failure.h"

namespace havuz {

std::string CaughtInTurkish() {
    try {
        throw;
    } catch (const RuntimeFailure &failure) {
        return FailureInTurkish(failure);
    } catch (const consistent::AnalysisFailure &failure) {
        return failure.turkish();
    } catch (const design::DesignFailure &failure) {
        return failure.turkish();
    } catch (const std::exception &failure) {
        return failure.what();
    }
}

} // namespace havuz
