#pragma once

#include "platform/rtl/Types.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// Loads libraries while the program runs. A host may have no such service: callers test
// GetInstance.
class TCustomLibraryLoader : public TService<TCustomLibraryLoader> {
public:
    // Operations, in order

    // The library at that path, a relative one looked up from the program's folder; nil when it
    // can't be loaded. It stays loaded.
    virtual Pointer LoadLibrary(StringView Path) = 0;
    // The address of what a loaded library exports by that name; nil when it does not.
    virtual Pointer FindExport(Pointer Library, const char* Name) = 0;
};

} // namespace quorin
