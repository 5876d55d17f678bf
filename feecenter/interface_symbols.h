#ifndef FEECENTER_INTERFACE_SYMBOLS_H
#define FEECENTER_INTERFACE_SYMBOLS_H

#include "IFeeCenter.h"

namespace qmservice {

// The interface has no virtual destructor, of which the flags of a project around this one may warn.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// Uses each constructor and assignment of the interface: a compiler emits an inline operation only where something
/// uses it, and the library exports all five.
class InterfaceSymbols : public IFeeCenter {
public:
    InterfaceSymbols();
    InterfaceSymbols(const InterfaceSymbols& other);
    InterfaceSymbols(InterfaceSymbols&& other) noexcept;
    InterfaceSymbols& operator=(const InterfaceSymbols& other);
    InterfaceSymbols& operator=(InterfaceSymbols&& other) noexcept;
    ~InterfaceSymbols() = default;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

}  // namespace qmservice

#endif  // FEECENTER_INTERFACE_SYMBOLS_H
