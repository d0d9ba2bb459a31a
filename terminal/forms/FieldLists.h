#pragma once

#include "terminal/forms/FieldListForm.h"

#include <memory>
#include <vector>

namespace quorin {

// Makes the lists that symbol and account fields drop down and keeps them for as long as a field
// has them. Must be gone before the services, and after the fields.
class TFieldLists {
public:
    // As THost::ChannelMessage; False for messages that are about something else.
    Boolean Answer(Integer number, Pointer data);
    Integer Count() const { return static_cast<Integer>(FLists.size()); }

private:
    std::vector<std::unique_ptr<TFieldListForm>> FLists;
};

} // namespace quorin
