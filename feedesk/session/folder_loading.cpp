#include "feedesk/session/folder_loading.h"

#include <fmt/format.h>

#include <utility>

#include "feedesk/failure.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "feedesk/timing/wall_time.h"
#include "standalone/loader.h"

namespace feedesk {

standalone::MarketFolder loadedFolder(const std::string& folder, const std::string& waysToName) {
    const Progress progress("loading " + pathText(folder));
    const InPart loading("listing the folder");
    standalone::FolderResult result =
        standalone::loadFolder(folder, [](const std::string& step) { static_cast<void>(wallTime().enter(step)); });
    if (result.ok()) {
        return std::move(result.folder);
    }
    for (standalone::LoadError& error : result.errors) {
        if (error.kind == standalone::ErrorKind::kFolder) {
            error.message += waysToName;
        }
        tellLoadError(error, folder);
    }
    for (const standalone::FurtherErrors& further : result.further) {
        tellFurtherErrors(further, folder);
    }
    throw Failure(kBadInput, fmt::format("{}; nothing was loaded", counted(result.errorCount, "error")));
}

}  // namespace feedesk
