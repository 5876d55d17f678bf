// Folders and files that the system does not give, texts in another encoding, and shapes of lines at their limits.

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <utility>

#include "fixture.h"

namespace standalone {
namespace {

namespace fs = std::filesystem;

using LoaderReadingError = LoaderTest;

/// While it lives the folder lets nobody in: root neither, which asks no permission, so that the program is not root
/// then.
class Closed {
public:
    explicit Closed(const fs::path& which) : folder(which), before(fs::status(which).permissions()) {
        constexpr uid_t kNobody = 65534;
        fs::permissions(folder, fs::perms::none);
        EXPECT_EQ(seteuid(user == 0 ? kNobody : user), 0);
    }
    Closed(const Closed&) = delete;
    Closed& operator=(const Closed&) = delete;
    ~Closed() {
        EXPECT_EQ(seteuid(user), 0);
        fs::permissions(folder, before);
    }

private:
    fs::path folder;
    fs::perms before;
    uid_t user = geteuid();
};

TEST_F(LoaderReadingError, FolderThatCannotBeOpened) {
    LoadResult result;
    {
        const Closed closed(folder);
        result = load();
    }
    ASSERT_EQ(result.errors.size(), 1U);
    EXPECT_EQ(result.errors[0].file, "");
    EXPECT_EQ(result.errors[0].line, 0U);
    EXPECT_THAT(result.errors[0].message, ::testing::HasSubstr("the folder cannot be read ("));
    EXPECT_THAT(result.errors[0].message, ::testing::HasSubstr("make it readable"));
}

TEST_F(LoaderReadingError, FolderInsideThatCannotBeRead) {
    remove("configured");
    fs::create_directory_symlink("configured", path("configured"));
    expectError("configured", 0, {"the folder cannot be read (", "make it readable"});
}

TEST_F(LoaderReadingError, InstrumentFolderThatCannotBeReadIsTheOnlyErrorThoughOthersNeedIt) {
    remove("instruments");
    fs::create_directory_symlink("instruments", path("instruments"));
    expectError("instruments", 0, {"the folder cannot be read (", "make it readable"});
}

const LoaderError kReadingErrors[] = {
    error("NameShorterThanAnEnding", written("instruments/x", "x\n"), 0, "does not know this name",
          "tables ending in .csv"),
    error("HalfACharacterOfChineseAtTheEnd", appended("accounts.csv", "Z1,\xD6\xD0,stock,\xD6"), 13,
          "the text is not UTF-8"),
    error("LoneCarriageReturnAtTheEnd", appended("accounts.csv", "Z1,One,stock,\r"), 13, "carriage return"),
    error("HeaderOfOneColumnIsNotTakenForOtherSeparators", written("configured/hgt.csv", "market\nHK\n"), 1,
          "lacks the column \"code\"")};

INSTANTIATE_TEST_SUITE_P(ReadingError, LoaderErrorTest, ::testing::ValuesIn(kReadingErrors), &nameOfError);

TEST_F(LoaderReadingError, MisspeltFileIsNotReportedAsMissingToo) {
    fs::rename(path("accounts.csv"), path("acounts.csv"));
    expectError("acounts.csv", 0, {"did you mean \"accounts.csv\"?"});
}

struct Encoded {
    const char* name;
    const char* text;
    const char* kind;
};

/// A line of accounts whose name holds these bytes.
class LoaderEncodingError : public LoaderTest, public ::testing::WithParamInterface<Encoded> {};

TEST_P(LoaderEncodingError, IsNamed) {
    append("accounts.csv", std::string("Z1,") + GetParam().text + ",stock,");
    expectError("accounts.csv", 13, {std::string("the text ") + GetParam().kind, "save it as UTF-8"});
}

// A character of GB18030 has a first byte from 81 to FE and a second one from 40 to FE that is not 7F, or two pairs of
// a byte from 81 to FE and a digit. Half of them are of daily use here (D6 D0 and B9 FA), so that the text reads as
// Chinese.
INSTANTIATE_TEST_SUITE_P(
    Texts, LoaderEncodingError,
    ::testing::Values(Encoded{"LowestTwoBytes", "\xD6\xD0\x81\x40", "looks like GB18030"},
                      Encoded{"HighestTwoBytes", "\xFE\xFE\xD6\xD0", "looks like GB18030"},
                      Encoded{"LowestFourBytes", "\xD6\xD0\x81\x30\x81\x30", "looks like GB18030"},
                      Encoded{"HighestFourBytes", "\xD6\xD0\xFE\x39\xFE\x39", "looks like GB18030"},
                      Encoded{"Punctuation", "\xA3\xA8\xD6\xD0\xA3\xA9\xA1\xA4", "looks like GB18030"},
                      Encoded{"FirstByteTooLow", "\xD6\xD0\x80\x40", "is not UTF-8"},
                      Encoded{"FirstByteTooHigh", "\xD6\xD0\xFF\x40", "is not UTF-8"},
                      Encoded{"SecondByteTooLow", "\xD6\xD0\x81\x2F", "is not UTF-8"},
                      Encoded{"SecondByteThatIsLeftOut", "\xD6\xD0\x81\x7F", "is not UTF-8"},
                      Encoded{"SecondByteTooHigh", "\xD6\xD0\x81\xFF", "is not UTF-8"},
                      Encoded{"ThirdByteTooLow", "\xD6\xD0\x81\x30\x80\x30", "is not UTF-8"},
                      Encoded{"FourthByteTooHigh", "\xD6\xD0\x81\x30\x81\x3A", "is not UTF-8"},
                      Encoded{"RareCharactersAlone", "\x81\x40\x82\x41", "is not UTF-8"},
                      Encoded{"MostlyRareCharacters", "\xD6\xD0\x81\x40\x82\x41", "is not UTF-8"},
                      Encoded{"PunctuationAlone", "\xA1\xA4", "is not UTF-8"},
                      Encoded{"WesternEuropean", "M\xFC\xDFigg\xE4nger", "is not UTF-8"}),
    [](const auto& text) { return text.param.name; });

TEST_F(LoaderReadingError, CommandThatConvertsNamesAnyPath) {
    const fs::path named = folder / "it's new";
    fs::create_directory(named);
    std::ofstream(named / "accounts.csv") << "\xD6\xD0";
    const LoadResult result = loadMarket(named.string());
    ASSERT_GE(result.errors.size(), 2U);  // the first: there is no market.toml
    EXPECT_THAT(result.errors[1].message,
                ::testing::HasSubstr("-t UTF-8 '" + folder.string() + "/it'\\''s new/accounts.csv' > utf8"));
}

TEST_F(LoaderReadingError, Utf16OfEitherByteOrder) {
    write("accounts.csv", std::string("\xFE\xFF\0a", 4));
    expectError("accounts.csv", 1, {"looks like UTF-16"});
    write("accounts.csv", std::string("\xFF\xFE"
                                      "a\0",
                                      4));
    expectError("accounts.csv", 1, {"looks like UTF-16"});
}

TEST_F(LoaderReadingError, CharactersOfSeveralBytesBehindAClosingQuote) {
    append("accounts.csv", "\"Z1\"\xE4\xB8\xAD\n");
    expectError("accounts.csv", 13, {"a closing quote is followed by \"\xE4\xB8\xAD\""});
    replace("accounts.csv", "\xE4\xB8\xAD\n", "\xE4\xB8\xADx\n");
    expectError("accounts.csv", 13, {"a closing quote is followed by \"\xE4\xB8\xAD\""});
}

}  // namespace
}  // namespace standalone
