#ifndef CONFORMANCE_JOBS_H
#define CONFORMANCE_JOBS_H

#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/shared_ptr.hpp>
#include <functional>
#include <string>

#include "conformance/conformance.h"

// Jobs on a strand of the host's engine.

namespace conformance {

boost::shared_ptr<boost::asio::io_service::strand> strandOf(const std::string& name);

/// How a job that is posted there is written in a sentence.
std::string postTo(const std::string& name);

/// Posts a marker to the sample's strand and waits for it; false when it was not run in time, it may run later then.
bool markerRuns(const Sample& sample, const std::function<void()>& marker);

/// Ends the check when a marker posted now is not run in time.
void expectMarker(const Sample& sample, const std::string& where);

}  // namespace conformance

#endif  // CONFORMANCE_JOBS_H
