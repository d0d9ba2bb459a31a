#pragma once
#include "ThirdParty.h"
