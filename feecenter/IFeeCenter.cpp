#include "IFeeCenter.h"

#include "feecenter/interface_symbols.h"

namespace qmservice {

InterfaceSymbols::InterfaceSymbols() = default;
InterfaceSymbols::InterfaceSymbols(const InterfaceSymbols& other) = default;
InterfaceSymbols::InterfaceSymbols(InterfaceSymbols&& other) noexcept = default;
InterfaceSymbols& InterfaceSymbols::operator=(const InterfaceSymbols& other) = default;
InterfaceSymbols& InterfaceSymbols::operator=(InterfaceSymbols&& other) noexcept = default;

}  // namespace qmservice
