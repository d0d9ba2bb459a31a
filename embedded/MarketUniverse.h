#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TList.h"
#include "viewdata/services/MarketRecords.h"

#include <deque>

namespace quorin {

// The product type of a share or fund; ProductType in MarketRecords.h has the others.
inline constexpr Integer StockProductType = 1;

// A name in up to three languages; an empty one falls back on the plain name.
struct TNameTexts {
    StringView Name = {};
    StringView Language1 = {};
    StringView Language2 = {};
};

struct TExchangeRecord {
    StringView Code = {};
    StringView Currency = {};    // of symbols that say nothing else
    StringView MarketState = {}; // key into the table of market states
    Integer MarketStatus = 0;    // MarketOpen, or anything else
    bool IsSided = false;        // a position is long or short, and closed before it is turned
};

struct TCategoryRecord {
    Integer CategoryID = 0;
    TNameTexts Names = {};
};

struct TSeriesRecord {
    StringView Code = {};
    StringView Exchange = {};
    Integer CategoryID = 0; // the same for all exchanges that use the code
    TNameTexts Names = {};
};

// What is known of a symbol; an empty text and 0.0 stand for "not known".
struct TSymbolRecord {
    StringView Symbol = {};
    StringView Exchange = {};
    StringView Series = {};
    TNameTexts Names = {};
    Integer ProductType = StockProductType;
    StringView Currency = {};
    StringView SpreadCode = {};
    StringView Underlyer = {};
    StringView ExpiryMonth = {};
    StringView StrikePrice = {};
    StringView CallPut = {};
    StringView LastTradingDay = {};
    StringView SettlementDay = {};
    StringView TickSize = {};
    StringView DisplayRatio = {};
    StringView FractionalQuantity = {};
    Double LotSize = 0.0;
    Double ContractSize = 0.0;
    Double PreviousClose = 0.0;
};

class TEmbeddedMarketData;
struct TMarketExchange;

class TEmbeddedCategoryData final : public TCustomCategoryData {
    QUORIN_CLASS(TEmbeddedCategoryData, TCustomCategoryData)
public:
    explicit TEmbeddedCategoryData(const TCategoryRecord& record);
    const String& GetName() const override { return FNames[0]; }
    const String& GetNameLanguage1() const override { return FNames[1]; }
    const String& GetNameLanguage2() const override { return FNames[2]; }

    Integer CategoryID() const { return FCategoryID; }

private:
    String FNames[3];
    Integer FCategoryID;
};

class TEmbeddedSeriesData final : public TCustomSeriesData {
    QUORIN_CLASS(TEmbeddedSeriesData, TCustomSeriesData)
public:
    TEmbeddedSeriesData(const TSeriesRecord& record, const TMarketExchange& exchange);
    Integer GetCategoryID() const override { return FCategoryID; }
    const String& GetName() const override { return FNames[0]; }
    const String& GetNameLanguage1() const override { return FNames[1]; }
    const String& GetNameLanguage2() const override { return FNames[2]; }

    const String& Code() const { return FCode; }
    const TMarketExchange& Exchange() const { return FExchange; }
    const TList<TEmbeddedMarketData*>& Records() const { return FRecords; }

private:
    friend class TMarketUniverse;
    String FCode;
    String FNames[3];
    const TMarketExchange& FExchange;
    Integer FCategoryID;
    TList<TEmbeddedMarketData*> FRecords;
    TEmbeddedSeriesData* FNextOfCode = nullptr; // on another exchange
};

struct TMarketExchange {
    String Code;
    String Currency;
    String MarketState;
    Integer MarketStatus = 0;
    bool IsSided = false;
    TList<TEmbeddedSeriesData*> Series;
    TList<TEmbeddedMarketData*> Records;
};

// One symbol. Texts that many symbols share are held once for all of them.
class TEmbeddedMarketData final : public TCustomMarketData {
    QUORIN_CLASS(TEmbeddedMarketData, TCustomMarketData)
public:
    const String& GetSymbol() const override { return FSymbol; }
    const String& GetExchange() const override { return FExchange->Code; }
    Integer GetProductType() const override { return FProductType; }
    const String& GetSeries() const override { return FSeries->Code(); }
    const String& GetExpiryMonth() const override { return *FExpiryMonth; }
    const String& GetStrikePrice() const override { return *FStrikePrice; }
    const String& GetCallPut() const override { return *FCallPut; }
    const String& GetUnderlyer() const override { return *FUnderlyer; }
    const String& GetCurrency() const override { return *FCurrency; }

    // The name of that language, or the plain one where it is empty; see TAppLanguage.
    const String& Name(Integer language) const;
    const String& SpreadCode() const { return *FSpreadCode; }
    const TMarketExchange& Exchange() const { return *FExchange; }
    const String& TickSize() const { return *FTickSize; }
    Double LotSize() const { return FLotSize; }
    Double ContractSize() const { return FContractSize; }
    Double PreviousClose() const { return FPreviousClose; }

    // What is known, by the numbers of Field: the twins of the operations above and the figures,
    // days and codes that only fields tell. Reading is as with TCustomSubItem.
    Double FieldNumber(Integer fieldNo) const;
    void ReadField(Integer fieldNo, String& text) const; // replaces what `text` holds
    bool HasField(Integer fieldNo) const;

    explicit TEmbeddedMarketData(StringView symbol) : FSymbol(symbol) {}

private:
    friend class TMarketUniverse;
    const String* FieldText(Integer fieldNo) const; // nil for what is no text of the record
    bool TryFieldFigure(Integer fieldNo, Double& figure) const;

    String FSymbol;
    const TMarketExchange* FExchange = nullptr;
    const TEmbeddedSeriesData* FSeries = nullptr;
    const String* FNames[3] = {};
    const String* FCurrency = nullptr;
    const String* FSpreadCode = nullptr;
    const String* FUnderlyer = nullptr;
    const String* FExpiryMonth = nullptr;
    const String* FStrikePrice = nullptr;
    const String* FCallPut = nullptr;
    const String* FLastTradingDay = nullptr;
    const String* FSettlementDay = nullptr;
    const String* FTickSize = nullptr;
    const String* FDisplayRatio = nullptr;
    const String* FFractionalQuantity = nullptr;
    Double FLotSize = 0.0;
    Double FContractSize = 0.0;
    Double FPreviousClose = 0.0;
    Double FStrike = 0.0;
    Integer FProductType = 0;
};

// Exchanges, categories, series and symbols, in the order in which they were added. Only what was
// added last can be taken out; records keep their addresses.
class TMarketUniverse {
public:
    // Each answers False, or nil, and changes nothing for an empty or known key and for a record
    // that names an exchange or series that is not there. Several exchanges may have a series of
    // one code and category; the first one stands for them where only the code is given.
    bool AddExchange(const TExchangeRecord& record);
    bool AddCategory(const TCategoryRecord& record);
    bool AddSeries(const TSeriesRecord& record);
    const TEmbeddedMarketData* AddSymbol(const TSymbolRecord& record);
    // How much there is, and back to that: what was added since is gone.
    struct TMark {
        std::size_t Exchanges, Categories, Series, Symbols;
    };
    TMark Mark() const;
    void BackTo(const TMark& mark);
    // Prepares for so many symbols in all.
    void Reserve(Integer symbols) { FBySymbol.Reserve(symbols); }

    // Nil for what is not there.
    const TMarketExchange* FindExchange(StringView code) const;
    TMarketExchange* FindExchange(StringView code);
    TEmbeddedCategoryData* FindCategory(Integer categoryID) const;
    TEmbeddedSeriesData* FindSeries(StringView code) const;
    TEmbeddedSeriesData* FindSeries(const TMarketExchange& exchange, StringView code) const;
    TEmbeddedMarketData* FindSymbol(StringView symbol) const;
    // Records of a series, of the whole exchange with an empty series.
    const TList<TEmbeddedMarketData*>* FindRecords(StringView exchange, StringView series) const;

    const TList<TMarketExchange*>& Exchanges() const { return FExchanges; }
    Integer SymbolCount() const { return FBySymbol.Count(); }

private:
    const String* Share(StringView text);
    const String* KeepName(StringView name);
    void DropLastSymbol();
    void DropLastSeries();
    void ForgetLookUps();

    std::deque<TMarketExchange> FExchangeStore;
    std::deque<TEmbeddedCategoryData> FCategoryStore;
    std::deque<TEmbeddedSeriesData> FSeriesStore;
    std::deque<TEmbeddedMarketData> FSymbolStore;
    std::deque<String> FTexts;
    TDictionary<String, const String*> FShared;
    TDictionary<String, TMarketExchange*> FByExchange;
    TDictionary<Integer, TEmbeddedCategoryData*> FByCategory;
    TDictionary<String, TEmbeddedSeriesData*> FBySeries;
    TDictionary<String, TEmbeddedMarketData*> FBySymbol;
    TList<TMarketExchange*> FExchanges;
    // Of the last look-ups: lists are read index by index.
    mutable TMarketExchange* FLastExchange = nullptr;
    mutable TEmbeddedSeriesData* FLastSeries = nullptr;
    mutable TEmbeddedMarketData* FLastSymbol = nullptr;
};

} // namespace quorin
