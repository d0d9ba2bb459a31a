#pragma once
#include <vector>
#include <xlsxwriter.h>
