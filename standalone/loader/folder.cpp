#include "standalone/loader/folder.h"

#include <fmt/format.h>

#include <algorithm>
#include <boost/algorithm/string/predicate.hpp>
#include <system_error>

#include "standalone/families.h"
#include "standalone/market_files.h"
#include "standalone/text/nearness.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

namespace fs = std::filesystem;

/// The files that a folder may have; empty names any .csv file.
struct KnownFolder {
    std::string name;  ///< empty for the market folder itself
    std::vector<std::string> files;

    [[nodiscard]] std::string pathOf(const std::string& file) const { return name.empty() ? file : name + "/" + file; }
};

std::vector<KnownFolder> makeKnownFolders() {
    KnownFolder fees{files::kFees, {}};
    KnownFolder configured{files::kConfigured, {}};
    KnownFolder custom{files::kCustom, {}};
    for (const RateFamily& family : rateFamilies()) {
        const std::string file = std::string(family.name) + files::kTableEnding;
        if (!family.feeAccounts.empty()) {
            fees.files.push_back(file);
        }
        if (family.isConfigured) {
            configured.files.push_back(file);
        }
        custom.files.push_back(file);
    }
    return {{"",
             {files::kMarket, files::kAccounts, files::kSystemCategories, files::kCustomCategories,
              files::kGroupCategories, files::kCharges}},
            {files::kInstruments, {}},
            fees,
            configured,
            custom};
}

const std::vector<KnownFolder>& knownFolders() {
    static const std::vector<KnownFolder> folders = makeKnownFolders();
    return folders;
}

/// Files that spreadsheets and desktops leave behind: locks begin with "~$", or with a point like other hidden files.
bool isLitter(const std::string& name) {
    const std::string lower = lowerCase(name);
    return boost::starts_with(name, "~$") || lower == "thumbs.db" || lower == "desktop.ini";
}

bool leftAlone(const std::string& name) {
    return name.front() == '.' || boost::ends_with(name, ".md") || isLitter(name);
}

/// The names in a folder in ascending order; the error says why there are none.
std::vector<std::string> namesIn(const fs::path& folder, std::error_code& error) {
    std::vector<std::string> names;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (!leftAlone(name)) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

class Scan {
public:
    explicit Scan(Load& underWay) : load(underWay) {}

    bool run() {
        std::error_code error;
        const std::vector<std::string> names = namesIn(load.folder, error);
        if (error) {
            return refuseFolder(error);
        }
        for (const std::string& name : names) {
            visitTop(name);
        }
        reportMissing();
        return true;
    }

private:
    bool refuseFolder(const std::error_code& error) {
        std::error_code ignored;
        const fs::file_status status = fs::status(load.folder, ignored);
        if (!fs::exists(status)) {
            load.errors.add({}, ErrorKind::kFolder,
                            fmt::format("there is no such folder; name the folder that holds {}", files::kMarket));
        } else if (!fs::is_directory(status)) {
            load.errors.add({}, ErrorKind::kFolder,
                            fmt::format("this is not a folder; name the folder that holds {}", files::kMarket));
        } else {
            load.errors.add({}, ErrorKind::kUnreadable,
                            "the folder cannot be read (" + error.message() + "); make it readable");
        }
        return false;
    }

    void visitTop(const std::string& name) {
        const auto& folders = knownFolders();
        const auto folder =
            std::find_if(folders.begin(), folders.end(), [&](const KnownFolder& known) { return known.name == name; });
        if (name == files::kLayouts) {
            return;  // a program that reads statements checks the layout that it reads with
        }
        if (folder == folders.end()) {
            visitFile(folders.front(), name);
        } else {
            visitFolder(*folder, name);
        }
    }

    void visitFolder(const KnownFolder& folder, const std::string& name) {
        std::error_code error;
        const std::vector<std::string> names = namesIn(load.folder / name, error);
        if (error) {
            if (name == files::kInstruments) {
                isWhole = false;
            }
            load.errors.add({name}, ErrorKind::kUnreadable,
                            error == std::errc::not_a_directory
                                ? "there is a file where a folder of this name was expected; rename it or remove it"
                                : "the folder cannot be read (" + error.message() + "); make it readable");
        }
        for (const std::string& file : names) {
            visitFile(folder, file);
        }
    }

    void visitFile(const KnownFolder& folder, const std::string& file) {
        const bool known = folder.files.empty()
                               ? boost::ends_with(file, files::kTableEnding)
                               : std::find(folder.files.begin(), folder.files.end(), file) != folder.files.end();
        if (!known) {
            reportUnknown(folder, file);
        } else if (folder.files.empty()) {
            load.instrumentFiles.push_back(folder.pathOf(file));
        } else {
            load.tables.push_back(folder.pathOf(file));
        }
    }

    void reportUnknown(const KnownFolder& folder, const std::string& file) {
        std::vector<std::string> names = folder.files;
        if (folder.name.empty()) {
            names.emplace_back(files::kLayouts);
            for (const KnownFolder& known : knownFolders()) {
                if (!known.name.empty()) {
                    names.push_back(known.name);
                }
            }
        }
        const std::string expected =
            folder.files.empty() ? fmt::format("tables ending in {}", files::kTableEnding) : oneOf(names);
        load.misspelt.push_back(nearest(file, names));
        load.errors.add({folder.pathOf(file)}, ErrorKind::kUnknownFile,
                        fmt::format("the format does not know this name, only {} here; rename it or remove it{}",
                                    expected, suggestion(file, names)));
    }

    void reportMissing() {
        for (const std::string name : files::kNeeded) {
            if (!load.lacks(name)) {
                continue;
            }
            load.errors.add({name}, ErrorKind::kMissingFile, "the file is missing, but it is needed; add it");
        }
        if (!load.instrumentFiles.empty() || !load.lacks(files::kInstruments) || !isWhole) {
            return;
        }
        load.errors.add({files::kInstruments}, ErrorKind::kMissingFile,
                        fmt::format("there is no table of instruments; add at least one file {}/*{}",
                                    files::kInstruments, files::kTableEnding));
    }

    Load& load;
    bool isWhole = true;  ///< the folder of instruments, if any, could be read
};

}  // namespace

bool scanFolder(Load& load) { return Scan(load).run(); }

}  // namespace standalone::loader
