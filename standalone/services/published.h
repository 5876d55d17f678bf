#ifndef STANDALONE_SERVICES_PUBLISHED_H
#define STANDALONE_SERVICES_PUBLISHED_H

#include <memory>
#include <mutex>
#include <shared_mutex>
#include <utility>

namespace standalone {

/// Immutable contents that many threads read and that are replaced as a whole. Safe from any thread; a reader sees all
/// of the old contents or all of the new.
template <class Contents>
class Published {
public:
    using Pointer = std::shared_ptr<const Contents>;

    /// Starts with what `Contents` holds by default.
    Published() : contents(std::make_shared<const Contents>()) {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;
    ~Published() = default;

    /// What `reader` makes of the contents. It runs under the lock: it must be brief, and may neither call the fee
    /// center nor keep a reference into the contents.
    template <class Reader>
    auto read(const Reader& reader) const {
        const std::shared_lock<std::shared_mutex> lock(mutex);
        return reader(*contents);
    }

    /// The contents of this moment, shared with the caller: for long reads, which then hold no lock.
    [[nodiscard]] Pointer hold() const {
        const std::shared_lock<std::shared_mutex> lock(mutex);
        return contents;
    }

    /// Puts `other` in place and gives the contents so far back in it, so that the caller destroys them after the lock
    /// is gone. `other` must not be empty.
    void swap(Pointer& other) noexcept {
        const std::unique_lock<std::shared_mutex> lock(mutex);
        contents.swap(other);
    }

private:
    mutable std::shared_mutex mutex;
    Pointer contents;  // guarded by mutex
};

}  // namespace standalone

#endif  // STANDALONE_SERVICES_PUBLISHED_H
