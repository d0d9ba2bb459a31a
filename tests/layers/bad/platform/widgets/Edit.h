#pragma once
#include "platform/rtl/ThirdParty.h"
