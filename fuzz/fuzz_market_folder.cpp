// Any bytes as a market folder: the loader refuses it, reporting each error where it is, or loads all of it, and a fee
// center then answers from what was loaded.

#include <cstddef>
#include <cstdint>

#include "fuzz/day_checks.h"
#include "fuzz/fail.h"
#include "fuzz/fee_center_checks.h"
#include "fuzz/load_checks.h"
#include "fuzz/market_text.h"
#include "fuzz/scratch_folder.h"
#include "standalone/loader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::ScratchFolder folder;
    const fuzz::Files files = fuzz::filesOf({reinterpret_cast<const char*>(data), size});
    folder.hold(files);
    const standalone::LoadResult result = standalone::loadMarket(folder.path());
    fuzz::checkLoad(files, result);
    const standalone::LoadResult again = standalone::loadMarket(folder.path());
    if (fuzz::textOf(again) != fuzz::textOf(result)) {
        fuzz::fail("the same folder loads the same\n" + fuzz::textOf(result) + "--- then\n" + fuzz::textOf(again));
    }
    if (!result.ok()) {
        return 0;
    }
    fuzz::checkDays(files, standalone::loadFolder(folder.path()).folder);
    fuzz::checkFeeCenter(result.market);
    return 0;
}
