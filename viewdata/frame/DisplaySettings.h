#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// The display settings that a data source watches, as the configuration gives them. A concrete
// source uses of them what it needs; a change of any one repaints its view.
class TDisplaySettings {
public:
    bool operator==(const TDisplaySettings&) const = default;

protected:
    // Fills every field from the current section of the configuration.
    void ReadDisplaySettings();

    Integer FBondStyle = 0;
    Integer FDefaultBondDenominator = AbsentPrecision;
    Integer FAmountPrecision = AbsentPrecision;
    Boolean FAmountKeepDecimal = false;
    Integer FQtyPrecision = AbsentPrecision;
    Boolean FQtyKeepDecimal = false;
    Integer FAvgPricePrecision = AbsentPrecision;
    Boolean FAvgPricekeepDecimal = false;
    Integer FFxRatioPrecision = AbsentPrecision;
    Boolean FFxRatioKeepDecimal = false;
    String FAvgPriceMode;

private:
    // A precision that the configuration lacks, or that is no whole number there.
    static constexpr Integer AbsentPrecision = -1;
};

} // namespace quorin
