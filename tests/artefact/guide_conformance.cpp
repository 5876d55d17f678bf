// The guide's sample as it prints it. What it includes itself comes first.
#include "guide_conformance_includes.inc"

#include "guide_samples.h"

void checkConformance(const boost::shared_ptr<qmservice::CAccountInfo>& account, bool& kept) {
#include "guide_conformance_body.inc"
}
