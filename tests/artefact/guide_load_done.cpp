// The guide's sample as it prints it. What it includes itself comes first.
#include "guide_load_done_includes.inc"

#include "guide_samples.h"

void loadDone(qmservice::CFeeCenter& fees, const boost::shared_ptr<qmservice::CAccountInfo>& account,
              const std::vector<boost::shared_ptr<qmservice::IData>>& records, EventLoop& loop,
              const std::shared_ptr<Window>& window) {
#include "guide_load_done_body.inc"
}
