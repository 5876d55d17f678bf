#ifndef FEEDESK_CHECKING_LINE_FAULTS_H
#define FEEDESK_CHECKING_LINE_FAULTS_H

#include <map>
#include <string>
#include <vector>

#include "feedesk/checking/finding.h"
#include "feedesk/checking/folder_facts.h"

namespace feedesk::checking {

/// Faults of the cells of lines: a line with several of them is one finding.
class LineFaults {
public:
    /// `accounts`: whose line it is; `found` and `remedy` are clauses.
    void add(const Place& place, const std::vector<std::string>& accounts, const std::string& found,
             const std::string& remedy);
    void add(const FolderLine& line, const std::string& found, const std::string& remedy) {
        add(line.place, line.accounts(), found, remedy);
    }

    void addTo(Findings& findings) const;

private:
    struct Faults {
        std::vector<std::string> accounts;
        std::vector<std::string> found;
        std::vector<std::string> remedies;  // each once
    };

    std::map<Place, Faults> byPlace;
};

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_LINE_FAULTS_H
