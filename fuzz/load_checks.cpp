#include "fuzz/load_checks.h"

#include <bson/bson.h>

#include <algorithm>

#include "fuzz/fail.h"
#include "fuzz/market_checks.h"
#include "fuzz/market_text.h"
#include "standalone/loader/reading_order.h"
#include "standalone/market_files.h"

namespace fuzz {
namespace {

using standalone::FurtherErrors;
using standalone::LoadError;
using standalone::LoadResult;
using standalone::loader::comesBefore;

std::size_t linesOf(const std::string& text) {
    const auto ends = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    return ends + (text.empty() || text.back() == '\n' ? 0 : 1);
}

bool isFolder(const Files& files, const std::string& path) {
    const auto below = files.lower_bound(path + "/");
    return below != files.end() && below->first.compare(0, path.size() + 1, path + "/") == 0;
}

/// Names that the format needs, or that other tables may need, so that an error can lie at a file that is not there.
bool isNeeded(const std::string& path) {
    namespace files = standalone::files;
    return path == files::kMarket || path == files::kAccounts || path == files::kInstruments ||
           path == files::kSystemCategories || path == files::kGroupCategories;
}

/// Whether the folder has the place, or lacks it although it needs it.
bool isPlace(const Files& files, const std::string& path, std::size_t line) {
    const auto file = files.find(path);
    if (file != files.end()) {
        return line <= linesOf(file->second);
    }
    return line == 0 && (isFolder(files, path) || isNeeded(path));
}

/// Whether the text is one line that a terminal shows as it is.
bool isOneLine(const std::string& text) {
    const auto isControl = [](char byte) { return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F; };
    return !text.empty() && bson_utf8_validate(text.data(), text.size(), false) &&
           std::none_of(text.begin(), text.end(), isControl);
}

/// Errors that are shown, or counted by kind: each has a place, a text of one line, and they come in the
/// order in which files are read, then by line.
template <class Errors>
void checkErrors(const Files& files, const std::string& folder, const Errors& errors) {
    for (const auto& error : errors) {
        const std::string text = error.text(folder);
        if (!isPlace(files, error.file, error.line)) {
            fail("an error has a place in the folder: " + text);
        }
        if (!isOneLine(text)) {
            fail("an error is one line of text: " + text);
        }
    }
    const bool sorted = std::is_sorted(errors.begin(), errors.end(), [](const auto& a, const auto& b) {
        return comesBefore(a.file, a.line, b.file, b.line);
    });
    if (!sorted) {
        fail("errors come in the order of reading, then by line");
    }
}

/// The errors that are shown come before those that are counted, and all of them are counted once.
void checkCounts(const LoadResult& result) {
    std::size_t count = result.errors.size();
    for (const FurtherErrors& further : result.further) {
        const LoadError& last = result.errors.back();
        if (comesBefore(further.file, further.line, last.file, last.line)) {
            fail("the first errors are shown: " + further.text(result.market.folder));
        }
        count += further.count;
    }
    if (count != result.errorCount) {
        fail("every error is counted");
    }
    if (result.errors.size() > standalone::kMostErrors) {
        fail("so many errors are shown at most");
    }
    if (result.errors.size() < standalone::kMostErrors && !result.further.empty()) {
        fail("an error is shown if it can be");
    }
}

/// A load that loaded nothing and found nothing wrong either: the text of a market that is as it was made.
std::string textOfNothing(const std::string& folder) {
    LoadResult nothing;
    nothing.market.folder = folder;
    return textOf(nothing);
}

}  // namespace

void checkLoad(const Files& files, const LoadResult& result) {
    if (result.ok()) {
        checkWhole(files, result.market);
        return;
    }
    checkErrors(files, result.market.folder, result.errors);
    checkErrors(files, result.market.folder, result.further);
    checkCounts(result);
    LoadResult loaded;
    loaded.market = result.market;
    if (textOf(loaded) != textOfNothing(result.market.folder)) {
        fail("with an error nothing is loaded\n" + textOf(loaded));
    }
}

}  // namespace fuzz
