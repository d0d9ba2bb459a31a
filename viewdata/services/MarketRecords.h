#pragma once

#include "platform/rtl/TObject.h"

namespace quorin {

// Product types that the view layer treats apart; there are more.
namespace ProductType {
inline constexpr Integer Futures = 2;
inline constexpr Integer Options = 3;
} // namespace ProductType

// What is known of one tradable symbol apart from its quote. Each operation but GetSymbol has a
// twin among the fields of the live item, which serves where there is no record.
class TCustomMarketData : public TObject {
    QUORIN_CLASS(TCustomMarketData, TObject)
public:
    // Operations, in order

    // The key of the record.
    virtual const String& GetSymbol() const = 0;
    virtual const String& GetExchange() const = 0;
    virtual Integer GetProductType() const = 0;
    virtual const String& GetSeries() const = 0;
    virtual const String& GetExpiryMonth() const = 0;
    // A decimal text with "." as point; empty for what has no strike.
    virtual const String& GetStrikePrice() const = 0;
    // Marked as in Field::CallPut; empty for what is no option.
    virtual const String& GetCallPut() const = 0;
    virtual const String& GetUnderlyer() const = 0;
    virtual const String& GetCurrency() const = 0;
};

// One series of an exchange. Names 1 and 2 are those of TAppLanguage TraditionalChinese and
// SimplifiedChinese; every other language takes the plain name.
class TCustomSeriesData : public TObject {
    QUORIN_CLASS(TCustomSeriesData, TObject)
public:
    // Operations, in order

    // The argument of TCustomMarketAdapter::FindCategory.
    virtual Integer GetCategoryID() const = 0;
    virtual const String& GetName() const = 0;
    virtual const String& GetNameLanguage1() const = 0;
    virtual const String& GetNameLanguage2() const = 0;
};

// A kind of products that several series belong to. Names as in TCustomSeriesData.
class TCustomCategoryData : public TObject {
    QUORIN_CLASS(TCustomCategoryData, TObject)
public:
    // Operations, in order

    virtual const String& GetName() const = 0;
    virtual const String& GetNameLanguage1() const = 0;
    virtual const String& GetNameLanguage2() const = 0;
};

} // namespace quorin
