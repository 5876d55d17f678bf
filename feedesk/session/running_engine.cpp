#include "feedesk/session/running_engine.h"

#include "standalone/host.h"

namespace feedesk {
namespace {

int living = 0;

}  // namespace

RunningEngine::RunningEngine(int threads) {
    if (living == 0) {
        standalone::startEngine(threads);
    }
    ++living;
}

// NOLINTNEXTLINE(bugprone-exception-escape)
RunningEngine::~RunningEngine() {
    --living;
    if (living == 0) {
        standalone::stopEngine();
    }
}

}  // namespace feedesk
