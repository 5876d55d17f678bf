#include "feedesk/running_engine.h"

#include "standalone/host.h"

namespace feedesk {

RunningEngine::RunningEngine(int threads) { standalone::startEngine(threads); }

// NOLINTNEXTLINE(bugprone-exception-escape)
RunningEngine::~RunningEngine() { standalone::stopEngine(); }

}  // namespace feedesk
