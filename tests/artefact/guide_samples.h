#ifndef TESTS_ARTEFACT_GUIDE_SAMPLES_H
#define TESTS_ARTEFACT_GUIDE_SAMPLES_H

#include <boost/shared_ptr.hpp>
#include <functional>
#include <memory>
#include <vector>

#include "CFeeCenter.h"
#include "host/records.h"

// The samples of the host guide, and what they name that a client has at hand.

/// A window of a user interface, which asks for its rate when it is drawn.
class Window {
public:
    explicit Window(qmservice::CFeeCenter& asked) : fees(asked) {}
    void redraw(const boost::shared_ptr<qmservice::CAccountInfo>& account) {
        shown.push_back(fees.getFee(account, "SH", "600519")->stkRateLimit->rate1);
    }
    std::vector<double> shown;

private:
    qmservice::CFeeCenter& fees;
};

/// The loop of a user interface.
class EventLoop {
public:
    virtual ~EventLoop() = default;
    virtual void post(std::function<void()> event) = 0;
};

/// Loads, and has the window drawn when the load is done.
void loadDone(qmservice::CFeeCenter& fees, const boost::shared_ptr<qmservice::CAccountInfo>& account,
              const std::vector<boost::shared_ptr<qmservice::IData>>& records, EventLoop& loop,
              const std::shared_ptr<Window>& window);

/// Prints to standard output which promises are broken; `kept` is whether none is.
void checkConformance(const boost::shared_ptr<qmservice::CAccountInfo>& account, bool& kept);

#endif  // TESTS_ARTEFACT_GUIDE_SAMPLES_H
