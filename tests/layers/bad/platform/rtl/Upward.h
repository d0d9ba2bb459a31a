#pragma once

#include "platform/widgets/Edit.h"
