#ifndef FEEDESK_SESSION_RUNNING_ENGINE_H
#define FEEDESK_SESSION_RUNNING_ENGINE_H

namespace feedesk {

/// Runs the strands of fee centers as long as it lives. Where several live, the engine is the one that the first of
/// them started and ends with the last. It is destroyed before the fee centers whose jobs it runs. For one thread.
class RunningEngine {
public:
    explicit RunningEngine(int threads);
    RunningEngine(const RunningEngine&) = delete;
    RunningEngine& operator=(const RunningEngine&) = delete;
    // Stopping is refused on a thread of the engine alone, and none of them owns an engine.
    // NOLINTNEXTLINE(bugprone-exception-escape)
    ~RunningEngine();
};

}  // namespace feedesk

#endif  // FEEDESK_SESSION_RUNNING_ENGINE_H
