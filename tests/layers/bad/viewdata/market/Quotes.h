#pragma once
// Allowed through the frame: not reported.
#include "viewdata/services/Backward.h"
#include "platform/rtl/ThirdParty.h"
