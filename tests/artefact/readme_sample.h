#ifndef TESTS_ARTEFACT_README_SAMPLE_H
#define TESTS_ARTEFACT_README_SAMPLE_H

#include <boost/shared_ptr.hpp>
#include <vector>

namespace qmservice {
class CAccountInfo;
class IData;
}  // namespace qmservice

/// The README's sample, which prints to standard output what it is answered; its parameters bear the names that the
/// README gives to what a client has at hand. Returns when the jobs of its fee center have ended.
void readmeSample(const boost::shared_ptr<qmservice::CAccountInfo>& account,
                  const std::vector<boost::shared_ptr<qmservice::IData>>& records,
                  const boost::shared_ptr<qmservice::IData>& custom);

/// Waits for the jobs that are queued on the sample's strand; the test's part.
void letJobsEnd();

#endif  // TESTS_ARTEFACT_README_SAMPLE_H
