#pragma once
#include <INIReader.h>
#include "viewdata/services/Backward.h"
