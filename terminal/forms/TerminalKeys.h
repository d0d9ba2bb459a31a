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
// Messages, audit list, trades and choosers.
inline constexpr StringView Res_Message_Log = u"Res_Message_Log";
inline constexpr StringView Res_Message_Message = u"Res_Message_Message";
inline constexpr StringView Res_Message_Question = u"Res_Message_Question";
inline constexpr StringView Res_Message_Answer = u"Res_Message_Answer";
inline constexpr StringView Res_Kind = u"Res_Kind";
inline constexpr StringView Res_Level = u"Res_Level";
inline constexpr StringView Res_Text = u"Res_Text";
inline constexpr StringView Res_Order = u"Res_Order";
inline constexpr StringView Res_SaveAs = u"Res_SaveAs";
inline constexpr StringView Res_Saved = u"Res_Saved";
inline constexpr StringView Res_CannotWrite = u"Res_CannotWrite";
inline constexpr StringView Res_AtAsk = u"Res_AtAsk";
inline constexpr StringView Res_AtBid = u"Res_AtBid";
inline constexpr StringView Res_SpreadFutures = u"Res_SpreadFutures";
inline constexpr StringView Res_SpreadOptions = u"Res_SpreadOptions";
inline constexpr StringView Res_Series = u"Res_Series";
inline constexpr StringView Res_CallPut = u"Res_CallPut";
inline constexpr StringView Res_Mode = u"Res_Mode";
inline constexpr StringView Res_Month = u"Res_Month";
inline constexpr StringView Res_AllMonths = u"Res_AllMonths";
inline constexpr StringView Res_CallsAndPuts = u"Res_CallsAndPuts";
inline constexpr StringView Res_SumAccounts = u"Res_SumAccounts";
inline constexpr StringView Res_SettingsFields = u"Res_SettingsFields";
inline constexpr StringView Res_SettingsNumbers = u"Res_SettingsNumbers";
inline constexpr StringView Res_SettingsOrders = u"Res_SettingsOrders";
inline constexpr StringView Res_SettingsFiles = u"Res_SettingsFiles";
inline constexpr StringView Res_SettingLater = u"Res_SettingLater";
inline constexpr StringView Res_Default = u"Res_Default";
inline constexpr StringView Res_DefaultOf = u"Res_DefaultOf";
inline constexpr StringView Res_DefaultAll = u"Res_DefaultAll";
// Settings that are one of several.
inline constexpr StringView Res_Group_Together = u"Res_Group_Together";
inline constexpr StringView Res_Group_Apart = u"Res_Group_Apart";
inline constexpr StringView Res_Group_Both = u"Res_Group_Both";
inline constexpr StringView Res_Thousands_Lists = u"Res_Thousands_Lists";
inline constexpr StringView Res_Thousands_Everywhere = u"Res_Thousands_Everywhere";
inline constexpr StringView Res_Thousands_Nowhere = u"Res_Thousands_Nowhere";
inline constexpr StringView Res_Bond_Decimals = u"Res_Bond_Decimals";
inline constexpr StringView Res_Bond_Dash = u"Res_Bond_Dash";
inline constexpr StringView Res_Bond_Blank = u"Res_Bond_Blank";
inline constexpr StringView Res_AvgPrice_Mixed = u"Res_AvgPrice_Mixed";
inline constexpr StringView Res_AvgPrice_Income = u"Res_AvgPrice_Income";
inline constexpr StringView Res_AvgPrice_FIFN = u"Res_AvgPrice_FIFN";
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
// Columns and rows of a list or a tree.
inline constexpr StringView Res_ChooseColumns = u"Res_ChooseColumns";
inline constexpr StringView Res_FilterColumn = u"Res_FilterColumn";
inline constexpr StringView Res_FilterClear = u"Res_FilterClear";
inline constexpr StringView Res_FilterClearAll = u"Res_FilterClearAll";
inline constexpr StringView Res_SortAscending = u"Res_SortAscending";
inline constexpr StringView Res_SortDescending = u"Res_SortDescending";
inline constexpr StringView Res_SortNone = u"Res_SortNone";
inline constexpr StringView Res_HideColumn = u"Res_HideColumn";
inline constexpr StringView Res_FitWidth = u"Res_FitWidth";
inline constexpr StringView Res_LayoutUndo = u"Res_LayoutUndo";
inline constexpr StringView Res_ExportCsv = u"Res_ExportCsv";
inline constexpr StringView Res_ExportXls = u"Res_ExportXls";
inline constexpr StringView Res_ExportXlsx = u"Res_ExportXlsx";
inline constexpr StringView Res_CopyRow = u"Res_CopyRow";
inline constexpr StringView Res_CopyWithCaptions = u"Res_CopyWithCaptions";
inline constexpr StringView Res_FindText = u"Res_FindText";
inline constexpr StringView Res_FindNext = u"Res_FindNext";
inline constexpr StringView Res_FindPrevious = u"Res_FindPrevious";
inline constexpr StringView Res_ColumnMenu = u"Res_ColumnMenu";
inline constexpr StringView Res_FavouriteToggle = u"Res_FavouriteToggle";
inline constexpr StringView Res_FavouriteAdd = u"Res_FavouriteAdd";
inline constexpr StringView Res_RowUp = u"Res_RowUp";
inline constexpr StringView Res_RowDown = u"Res_RowDown";
inline constexpr StringView Res_CancelButton = u"Res_CancelButton";
// Grids.
inline constexpr StringView Res_RowsWait = u"Res_RowsWait";
inline constexpr StringView Res_NothingToShow = u"Res_NothingToShow";
inline constexpr StringView Res_NothingPasses = u"Res_NothingPasses";
inline constexpr StringView Res_NoDeliverySince = u"Res_NoDeliverySince";
inline constexpr StringView Res_RowsWithoutPrice = u"Res_RowsWithoutPrice";
inline constexpr StringView Res_CurrenciesWithoutRatio = u"Res_CurrenciesWithoutRatio";
// Files.
inline constexpr StringView Res_Saving = u"Res_Saving";
inline constexpr StringView Res_SavingEnd = u"Res_SavingEnd";
inline constexpr StringView Res_OverwriteQuestion = u"Res_OverwriteQuestion";
} // namespace TerminalKey

} // namespace quorin
