#ifndef TESTS_STANDALONE_LOADER_FIXTURE_H
#define TESTS_STANDALONE_LOADER_FIXTURE_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "standalone/loader.h"

namespace standalone {

/// A market folder in a temporary directory of its own, small and without errors; it is removed with the test.
class LoaderTest : public ::testing::Test {
protected:
    LoaderTest();
    ~LoaderTest() override;

    void write(const std::string& name, const std::string& text) const;
    /// Appends to a file; `text` is usually one more line.
    void append(const std::string& name, const std::string& text) const;
    /// Replaces the one occurrence of `from`.
    void replace(const std::string& name, const std::string& from, const std::string& to) const;
    void remove(const std::string& name) const;
    [[nodiscard]] std::string path(const std::string& name) const;

    [[nodiscard]] LoadResult load() const { return loadMarket(folder.string()); }
    /// Loads a folder that must have no errors.
    [[nodiscard]] Market loadGood() const;

    /// The same with all its days.
    [[nodiscard]] MarketFolder loadGoodFolder() const;

    /// Loads and checks that there is just this error, whose message holds all the words, and that nothing was loaded.
    void expectError(const std::string& file, std::size_t line, const std::vector<std::string>& words) const;
    /// Loads and checks that the errors are at these places, in this order, as "file:line".
    void expectPlaces(const std::vector<std::string>& places) const;

    std::filesystem::path folder;
};

/// One edit of one file of that folder.
struct Edit {
    enum class How { kWrite, kAppend, kReplace };
    How how;
    std::string file;
    std::string text;
    std::string with = {};  ///< for kReplace
};
inline Edit written(const std::string& file, const std::string& text) { return {Edit::How::kWrite, file, text}; }
inline Edit appended(const std::string& file, const std::string& text) { return {Edit::How::kAppend, file, text}; }
inline Edit replaced(const std::string& file, const std::string& from, const std::string& to) {
    return {Edit::How::kReplace, file, from, to};
}

/// Where an error is; a line alone is one of the edited file.
struct ErrorPlace {
    ErrorPlace(std::size_t lineOfEditedFile) : line(lineOfEditedFile) {}
    ErrorPlace(std::string otherFile, std::size_t itsLine) : file(std::move(otherFile)), line(itsLine) {}

    std::string file;
    std::size_t line;
};
inline ErrorPlace at(const std::string& file, std::size_t line) { return {file, line}; }

/// An edit, and the one error that it leads to, whose message holds all the words.
struct LoaderError {
    const char* name;
    Edit edit;
    ErrorPlace place;
    std::vector<std::string> words;
};
template <class... Words>
LoaderError error(const char* name, const Edit& edit, const ErrorPlace& place, const Words&... words) {
    return {name, edit, place, {words...}};
}
void PrintTo(const LoaderError& error, std::ostream* out);
std::string nameOfError(const ::testing::TestParamInfo<LoaderError>& error);

/// Each row of a table of errors.
class LoaderErrorTest : public LoaderTest, public ::testing::WithParamInterface<LoaderError> {};

/// The account with this number.
const Account& accountOf(const Market& market, const std::string& number);

/// A day, written as 2023-08-28.
cost::Date day(const std::string& text);

/// "market code" of the instruments of the account's records, in order.
std::vector<std::string> codesOf(const Account& account);

}  // namespace standalone

#endif  // TESTS_STANDALONE_LOADER_FIXTURE_H
