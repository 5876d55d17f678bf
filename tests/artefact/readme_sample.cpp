// The sample as the README prints it. What it includes itself comes first and is all that it needs.
#include "readme_sample_includes.inc"

#include "readme_sample.h"

void readmeSample(const boost::shared_ptr<qmservice::CAccountInfo>& account,
                  const std::vector<boost::shared_ptr<qmservice::IData>>& records,
                  const boost::shared_ptr<qmservice::IData>& custom) {
#include "readme_sample_body.inc"

    // Behind this the fee center is destroyed. A sample that asks too early has printed the wrong rate by now, and
    // fails for that, not by a crash.
    letJobsEnd();
}
