#pragma once
#include "platform/rtl/Missing.h"
