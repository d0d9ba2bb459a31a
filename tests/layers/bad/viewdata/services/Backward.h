#pragma once
#include "viewdata/market/Quotes.h"
