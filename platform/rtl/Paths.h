#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// The folder in which the user keeps documents, as the desktop has it: XDG_DOCUMENTS_DIR of the
// file user-dirs.dirs, which lies where XDG_CONFIG_HOME says, else in .config of the home folder;
// without the file or its line, the environment variable of that name. A folder that is not there
// counts for nothing. Else the home folder; empty where there is none either.
String GetDocumentsPath();

} // namespace quorin
