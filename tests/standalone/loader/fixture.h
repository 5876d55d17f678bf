#ifndef TESTS_STANDALONE_LOADER_FIXTURE_H
#define TESTS_STANDALONE_LOADER_FIXTURE_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
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

    /// Loads and checks that there is just this error, whose message holds all the words, and that nothing was loaded.
    void expectError(const std::string& file, std::size_t line, const std::vector<std::string>& words) const;
    /// Loads and checks that the errors stand at these places, in this order, as "file:line".
    void expectPlaces(const std::vector<std::string>& places) const;

    std::filesystem::path folder;
};

/// The account with this number.
const Account& accountOf(const Market& market, const std::string& number);

/// "market code" of the instruments of the account's records, in order.
std::vector<std::string> codesOf(const Account& account);

}  // namespace standalone

#endif  // TESTS_STANDALONE_LOADER_FIXTURE_H
