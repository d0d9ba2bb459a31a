#pragma once

#include "embedded/OrderDesk.h"

namespace quorin {

// One line of the audit list of the desk in the language in force: number, time, what happened, and
// with an order its number, account, side, quantity, symbol, price and reason as far as they apply.
String AuditLine(const TOrderAuditEntry& entry, const TOrderDesk& desk);

} // namespace quorin
