#ifndef TESTS_FEEDESK_SUPPORT_RANDOM_FOLDER_H
#define TESTS_FEEDESK_SUPPORT_RANDOM_FOLDER_H

#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {

/// The text of a small market folder over all families and kinds of account, at random: fee lines that overlap, custom
/// fees of several updates and kinds of category, configured limits, fees of the exchange, lines of other days. It is
/// asked as of 2024-01-02; lines change on 2024-02-01 and 2024-07-01.
class RandomFolder {
public:
    explicit RandomFolder(unsigned seed);

    /// A line that gives rates.
    struct RateLine {
        std::string file;
        std::size_t line = 0;  ///< from 1

        [[nodiscard]] std::string place() const { return file + ":" + std::to_string(line); }
    };
    /// Those of fees/, custom/ and configured/, and the instruments with a fee of the exchange.
    [[nodiscard]] std::vector<RateLine> rateLines() const;

    /// Takes the rates of a line away: a blank line is left, so that the others keep their numbers, or an instrument
    /// without a fee.
    void takeAway(const RateLine& line);
    /// Replaces the rate in the line's last column but the days by one that no other line has.
    void changeRate(const RateLine& line);

    /// Writes it in place of the files of the folder.
    void writeTo(const SampleFolder& folder) const;

    [[nodiscard]] static const std::vector<std::string>& accounts();
    [[nodiscard]] static const std::vector<std::string>& instruments();  ///< "SH:600001"

private:
    void addFees(const std::string& family, const std::vector<std::string>& owners,
                 const std::vector<std::string>& places);
    void addConfigured(const std::string& family, const std::vector<std::string>& places);
    void addCustomFees(const std::string& family, const std::vector<std::string>& owners);
    void addFutures();
    void addOptions();
    void add(const std::string& file, const std::string& header, const std::string& line);
    int number(int least, int most);
    std::string rate();
    std::string days();
    std::string category(const std::string& family);
    template <class Item>
    const Item& oneOf(const std::vector<Item>& items);

    std::mt19937 random;
    int rates = 0;
    std::map<std::string, std::vector<std::string>> files;
};

}  // namespace feedesk::test

#endif  // TESTS_FEEDESK_SUPPORT_RANDOM_FOLDER_H
