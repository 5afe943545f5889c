#pragma once

#include <memory>
#include <vector>

#include "platform/layers/tree/RunningAnimation.h"

namespace zn {

/// The groups of all open transactions, the pass's own first.
std::vector<std::shared_ptr<TransactionGroup>> openTransactionGroups();
/// Ends what was set outside any transaction.
void endPassTransaction();

}  // namespace zn
