// Any bytes as a history of changes: behind it the fee center and the model answer alike. What they answer after each
// step is compared only when they do not, to tell where it begins: the fuzzer drops steps by itself, and so comes to
// every state on the way. With FUZZ_DESCRIBE in the environment every history is printed in words first, which is the
// way to read an input.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "fuzz/fail.h"
#include "histories/run_history.h"

namespace {

using histories::Focus;
using histories::History;

Focus focusOf(std::uint8_t byte) { return histories::kFocuses[byte % histories::kFocuses.size()]; }

std::string described(const History& history, Focus focus) {
    return std::string("accounts: ") + histories::nameOf(focus) + "\n" + histories::describe(history, focus);
}

bool agree(const History& history, Focus focus) {
    return !histories::runHistory(history, focus, histories::Compare::theLastStep).difference;
}

}  // namespace

// The first byte chooses the accounts, the others are the history.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const Focus focus = focusOf(data[0]);
    const History history = histories::historyFrom(data + 1, size - 1);
    static const bool tells = std::getenv("FUZZ_DESCRIBE") != nullptr;
    if (tells) {
        std::fprintf(stderr, "%s", described(history, focus).c_str());
    }
    if (!agree(history, focus)) {
        const auto difference = histories::runHistory(history, focus).difference;
        fuzz::fail("fee center and model answer alike\n" + described(history, focus) + "They differ " +
                   difference.value_or("at the end, but not when they are compared after each step"));
    }
    return 0;
}
