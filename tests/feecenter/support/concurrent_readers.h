#ifndef TESTS_FEECENTER_SUPPORT_CONCURRENT_READERS_H
#define TESTS_FEECENTER_SUPPORT_CONCURRENT_READERS_H

#include <atomic>
#include <boost/asio/io_service_strand.hpp>
#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "support/fake_host.h"

namespace test {

/// Changes on the strand, version after version, while threads read over and over. The first change of a version
/// pauses at its first call of the host, until each reader has read a whole round: so every reader reads during the
/// beginning of every version, and sees the version before it. Then all run freely.
class ConcurrentReaders {
public:
    /// One round of the reader of this number; what was wrong, empty when nothing was.
    using Round = std::function<std::string(std::size_t)>;
    /// Queues a version's changes.
    using Post = std::function<void(int)>;

    /// The host's hooks are taken for as long as this lives.
    ConcurrentReaders(FakeHost& host, boost::asio::io_service::strand& strand);
    ConcurrentReaders(const ConcurrentReaders&) = delete;
    ConcurrentReaders& operator=(const ConcurrentReaders&) = delete;
    ~ConcurrentReaders();

    /// To be called once. Runs the versions 1, 2 ... `versions` with this many readers, each of which reads a last
    /// round after them. What each reader found wrong; one more entry where a version made no call of the host.
    std::vector<std::string> run(int versions, std::size_t readers, const Post& post, const Round& round);

    /// The newest version whose changes are all done, 0 at first. Safe from any thread.
    [[nodiscard]] int oldest() const { return done; }
    /// The newest version of which a change may be seen, at most two ahead of the other. Safe from any thread.
    [[nodiscard]] int newest() const { return posted; }

private:
    void pause();
    void postAll(const Post& post);
    std::string read(std::size_t reader, const Round& round);

    FakeHost& host;
    boost::asio::io_service::strand& strand;
    int last = 0;
    std::atomic<int> posted{0};
    std::atomic<int> done{0};
    std::atomic<int> paused{0};         ///< the version that is paused, or was last
    std::atomic<int> unmet{0};          ///< versions that did not
    std::vector<std::atomic<int>> met;  ///< by reader: what `paused` was when its latest whole round began
};

/// 0, 1 ... `last`: what a reader sees that meets every version and reads once more.
std::set<int> versionsUpTo(int last);

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_CONCURRENT_READERS_H
