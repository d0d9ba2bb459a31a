#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Keys of the terminal's own texts, beside those of the view layer in ResourceKeys.h.
namespace TerminalKey {
inline constexpr StringView Res_BidQty = u"Res_BidQty";
inline constexpr StringView Res_Bid = u"Res_Bid";
inline constexpr StringView Res_Ask = u"Res_Ask";
inline constexpr StringView Res_AskQty = u"Res_AskQty";
inline constexpr StringView Res_Last = u"Res_Last";
inline constexpr StringView Res_PrevClose = u"Res_PrevClose";
inline constexpr StringView Res_Change = u"Res_Change";
inline constexpr StringView Res_Trades = u"Res_Trades";
inline constexpr StringView Res_Time = u"Res_Time";
inline constexpr StringView Res_Qty = u"Res_Qty";
inline constexpr StringView Res_Price = u"Res_Price";
inline constexpr StringView Res_Side = u"Res_Side";
inline constexpr StringView Res_RequiredMargin = u"Res_RequiredMargin";
inline constexpr StringView Res_LoggedOut = u"Res_LoggedOut";
inline constexpr StringView Res_MarketNotReady = u"Res_MarketNotReady";
inline constexpr StringView Res_AccountsNotReady = u"Res_AccountsNotReady";
inline constexpr StringView Res_OneCurrency = u"Res_OneCurrency";
inline constexpr StringView Res_NoChinaConnect = u"Res_NoChinaConnect";
// Positions.
inline constexpr StringView Res_Net = u"Res_Net";
inline constexpr StringView Res_Available = u"Res_Available";
inline constexpr StringView Res_AveragePrice = u"Res_AveragePrice";
inline constexpr StringView Res_MarketValue = u"Res_MarketValue";
inline constexpr StringView Res_RealisedPL = u"Res_RealisedPL";
inline constexpr StringView Res_UnrealisedPL = u"Res_UnrealisedPL";
inline constexpr StringView Res_TotalPL = u"Res_TotalPL";
inline constexpr StringView Res_Bought = u"Res_Bought";
inline constexpr StringView Res_Sold = u"Res_Sold";
inline constexpr StringView Res_AcceptValue = u"Res_AcceptValue";
// Orders and what is asked about them.
inline constexpr StringView Res_Buy = u"Res_Buy";
inline constexpr StringView Res_Sell = u"Res_Sell";
inline constexpr StringView Res_AtMarket = u"Res_AtMarket";
inline constexpr StringView Res_OneLot = u"Res_OneLot";
inline constexpr StringView Res_OrderQuestion = u"Res_OrderQuestion";
inline constexpr StringView Res_OrderEntry = u"Res_OrderEntry";
inline constexpr StringView Res_AddFavoriteQuestion = u"Res_AddFavoriteQuestion";
inline constexpr StringView Res_NoSymbolToAdd = u"Res_NoSymbolToAdd";
inline constexpr StringView Res_Favourites = u"Res_Favourites";
inline constexpr StringView Res_OrderNumber = u"Res_OrderNumber";
inline constexpr StringView Res_Reason = u"Res_Reason";
inline constexpr StringView Res_Filled = u"Res_Filled";
inline constexpr StringView Res_PriceMoved = u"Res_PriceMoved";
inline constexpr StringView Res_RowChanged = u"Res_RowChanged";
inline constexpr StringView Res_RowGone = u"Res_RowGone";
inline constexpr StringView Res_Yes = u"Res_Yes";
inline constexpr StringView Res_No = u"Res_No";
inline constexpr StringView Res_CloseTicked = u"Res_CloseTicked";
inline constexpr StringView Res_OrderOutcome = u"Res_OrderOutcome";
inline constexpr StringView Res_NotTaken = u"Res_NotTaken";
// Actions on a row.
inline constexpr StringView Res_BuyBest = u"Res_BuyBest";
inline constexpr StringView Res_BuyLast = u"Res_BuyLast";
inline constexpr StringView Res_BuyMarket = u"Res_BuyMarket";
inline constexpr StringView Res_SellBest = u"Res_SellBest";
inline constexpr StringView Res_SellLast = u"Res_SellLast";
inline constexpr StringView Res_SellMarket = u"Res_SellMarket";
inline constexpr StringView Res_CloseBest = u"Res_CloseBest";
inline constexpr StringView Res_CloseLast = u"Res_CloseLast";
inline constexpr StringView Res_CloseMarket = u"Res_CloseMarket";
inline constexpr StringView Res_Reverse = u"Res_Reverse";
inline constexpr StringView Res_ReverseQuestion = u"Res_ReverseQuestion";
inline constexpr StringView Res_CloseAll = u"Res_CloseAll";
inline constexpr StringView Res_CopyToTicket = u"Res_CopyToTicket";
inline constexpr StringView Res_CancelOrder = u"Res_CancelOrder";
inline constexpr StringView Res_CancelQuestion = u"Res_CancelQuestion";
inline constexpr StringView Res_WorkingOrders = u"Res_WorkingOrders";
inline constexpr StringView Res_AllOrders = u"Res_AllOrders";
// The list of keys.
inline constexpr StringView Res_Keys = u"Res_Keys";
inline constexpr StringView Res_Action = u"Res_Action";
inline constexpr StringView Res_Key = u"Res_Key";
// Accounts.
inline constexpr StringView Res_AccountTag = u"Res_AccountTag";
inline constexpr StringView Res_AvailableCash = u"Res_AvailableCash";
inline constexpr StringView Res_CurrencyRatio = u"Res_CurrencyRatio";
inline constexpr StringView Res_PendingBuys = u"Res_PendingBuys";
inline constexpr StringView Res_PendingSells = u"Res_PendingSells";
inline constexpr StringView Res_BoughtAmount = u"Res_BoughtAmount";
inline constexpr StringView Res_SoldAmount = u"Res_SoldAmount";
inline constexpr StringView Res_InitialMargin = u"Res_InitialMargin";
inline constexpr StringView Res_MaintenanceMargin = u"Res_MaintenanceMargin";
inline constexpr StringView Res_HeldCash = u"Res_HeldCash";
inline constexpr StringView Res_Cash = u"Res_Cash";
inline constexpr StringView Res_Shortfall = u"Res_Shortfall";
inline constexpr StringView Res_CreditLimit = u"Res_CreditLimit";
inline constexpr StringView Res_Loan = u"Res_Loan";
inline constexpr StringView Res_BuyingPower = u"Res_BuyingPower";
inline constexpr StringView Res_NetAssets = u"Res_NetAssets";
inline constexpr StringView Res_Figure = u"Res_Figure";
inline constexpr StringView Res_Amount = u"Res_Amount";
inline constexpr StringView Res_Aggregated = u"Res_Aggregated";
inline constexpr StringView Res_ChinaConnect = u"Res_ChinaConnect";
inline constexpr StringView Res_AllAccounts = u"Res_AllAccounts";
// The window with its forms and menus.
inline constexpr StringView Res_MarketWatch = u"Res_MarketWatch";
inline constexpr StringView Res_UnderlyerList = u"Res_UnderlyerList";
inline constexpr StringView Res_Positions = u"Res_Positions";
inline constexpr StringView Res_PositionView = u"Res_PositionView";
inline constexpr StringView Res_AccountTree = u"Res_AccountTree";
inline constexpr StringView Res_CashTree = u"Res_CashTree";
inline constexpr StringView Res_Ticket = u"Res_Ticket";
inline constexpr StringView Res_Orders = u"Res_Orders";
inline constexpr StringView Res_LastTrades = u"Res_LastTrades";
inline constexpr StringView Res_Messages = u"Res_Messages";
inline constexpr StringView Res_AuditList = u"Res_AuditList";
inline constexpr StringView Res_Settings = u"Res_Settings";
inline constexpr StringView Res_AllCategories = u"Res_AllCategories";
inline constexpr StringView Res_Category = u"Res_Category";
inline constexpr StringView Res_MenuForms = u"Res_MenuForms";
inline constexpr StringView Res_MenuView = u"Res_MenuView";
inline constexpr StringView Res_MenuLanguage = u"Res_MenuLanguage";
inline constexpr StringView Res_MenuTheme = u"Res_MenuTheme";
inline constexpr StringView Res_ThemeLight = u"Res_ThemeLight";
inline constexpr StringView Res_ThemeDark = u"Res_ThemeDark";
inline constexpr StringView Res_FormClose = u"Res_FormClose";
inline constexpr StringView Res_FormsArrange = u"Res_FormsArrange";
inline constexpr StringView Res_Quit = u"Res_Quit";
inline constexpr StringView Res_LinkGroup = u"Res_LinkGroup";
inline constexpr StringView Res_LinkGroupNone = u"Res_LinkGroupNone";
inline constexpr StringView Res_LinkGroupNamed = u"Res_LinkGroupNamed";
inline constexpr StringView Res_FormFloat = u"Res_FormFloat";
inline constexpr StringView Res_StatusFeed = u"Res_StatusFeed";
inline constexpr StringView Res_StatusPaint = u"Res_StatusPaint";
inline constexpr StringView Res_StatusAge = u"Res_StatusAge";
// Grids.
inline constexpr StringView Res_RowsWait = u"Res_RowsWait";
inline constexpr StringView Res_NoDeliverySince = u"Res_NoDeliverySince";
inline constexpr StringView Res_RowsWithoutPrice = u"Res_RowsWithoutPrice";
// Files.
inline constexpr StringView Res_OverwriteQuestion = u"Res_OverwriteQuestion";
} // namespace TerminalKey

} // namespace quorin
