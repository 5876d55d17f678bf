#ifndef FEEDESK_RECONCILING_COMMON_CAUSES_H
#define FEEDESK_RECONCILING_COMMON_CAUSES_H

#include <cstddef>
#include <vector>

#include "feedesk/reconciling/charged_lines.h"

namespace feedesk {

/// Orders, and one change that explains each of them.
struct CommonCause {
    OrdersByDay orders;
    Explanation cause;
};

/// Gives the differing orders of one charging term the first change of a term, such as of its minimum, that explains
/// them all. Orders that have none in common, or differ alone, stay as they are.
void takeCausesOfTerms(const OrdersByDay& orders);

/// Gives all differing orders the first change that explains every one of them, where there is one.
void takeCauseOfAll(const OrdersByDay& orders);

/// Of the differing orders that the same lines of the folder charge, two or more, the first cause that explains them
/// all, where there is one.
std::vector<CommonCause> commonCausesOf(const OrdersByDay& orders);

/// The differing orders without a cause, those together that the same lines of the folder charge.
std::vector<OrdersByDay> byFolderLines(const OrdersByDay& orders);

/// How many of the orders are explained by the one kind of change that explains most of them.
std::size_t mostOfOneCause(const OrdersByDay& orders);

/// Whether one change explains each of the orders.
bool haveCauseInCommon(const OrdersByDay& orders);

/// Gives the orders the cause.
void take(const CommonCause& common);

/// The changes of charging terms that are the first cause of two orders or more; each of these gets its own.
SharedTermsList sharedTermsOf(const OrdersByDay& orders);

/// Gives the order the first cause that explains it.
void takeFirstCause(ReconciledOrder& charged);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_COMMON_CAUSES_H
