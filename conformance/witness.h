#ifndef CONFORMANCE_WITNESS_H
#define CONFORMANCE_WITNESS_H

#include <string>
#include <utility>

namespace conformance {

/// Ends a check: what the last call did that it must not do, such as "gave an empty pointer".
struct Broken {
    std::string did;
};

/// Ends a check that the sample gives nothing for.
struct NotChecked {
    std::string why;
};

/// Remembers what was called last, so that the sentence of a broken promise can say so. For one thread.
class Witness {
public:
    /// Makes a call of the host that is described as a reader would write it.
    template <class Call>
    auto call(std::string description, Call made) -> decltype(made()) {
        called = std::move(description);
        return made();
    }

    static void expect(bool kept, const std::string& did) {
        if (!kept) {
            throw Broken{did};
        }
    }

    [[nodiscard]] const std::string& lastCall() const { return called; }

private:
    std::string called;
};

}  // namespace conformance

#endif  // CONFORMANCE_WITNESS_H
