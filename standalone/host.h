#ifndef STANDALONE_HOST_H
#define STANDALONE_HOST_H

#include <boost/shared_ptr.hpp>
#include <memory>
#include <string>

#include "IFeeCenter.h"
#include "standalone/market.h"

namespace standalone {

struct Snapshot;

/// A market made ready for the process's services: making it takes as long as the market is large, installing it does
/// not. Immutable, cheap to copy, safe from any thread.
using PreparedMarket = std::shared_ptr<const Snapshot>;

/// Copies the market and shares its records; no instrument or account may be without its record. Throws nothing but
/// std::bad_alloc.
PreparedMarket prepared(const Market& market);

/// Puts a market into the process's services: catalogue, accounts, trade units, configured limits, categories, foreign
/// markets and simulation platforms, in place of what they held. All services change in one step: a call that runs at
/// the same time is answered from all of the old market or all of the new, and once one call has seen the new market,
/// so does every later call to any service. `market` may not be empty. Safe from any thread; throws nothing.
void install(PreparedMarket market) noexcept;

/// The same with a market that is not prepared. Throws std::bad_alloc when memory runs out; the services then keep what
/// they hold.
void install(const Market& market);

/// Empties the services that install() fills, in one step. Throws as install() does.
void uninstall();

/// Starts the engine that runs the strands, with `threads` threads of its own. Strands exist, and take jobs, before it
/// runs and after it has stopped; their jobs wait. An exception that leaves a job is reported on standard error, and
/// the jobs after it run. Throws std::invalid_argument for fewer than one thread, std::logic_error when the engine runs
/// already, and std::system_error, with no thread running, when the system gives too few.
void startEngine(int threads);

/// Finishes the jobs that are queued and stops the threads; the engine can be started again. Nothing happens when it
/// does not run. Throws std::logic_error on one of the engine's own threads.
void stopEngine();

/// Waits until every job that was posted to the strand of that name before this call has run. Throws std::logic_error
/// when the engine does not run and on one of its own threads. The engine must not be stopped meanwhile.
void waitForStrand(const std::string& name);

/// Hands an account's fee records and then its custom fees, in their order, to a fee center, as a client does when the
/// back end answers. Returns at once; wait for the fee center's strand. The records are shared until then.
void feed(qmservice::IFeeCenter& feeCenter, const Account& account);

}  // namespace standalone

#endif  // STANDALONE_HOST_H
