#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/rtl/Types.h"

#include <string_view>

namespace quorin {

// Attribute under which a record gives the code of its account.
inline constexpr Integer AccountCodeAttribute = 10;

// The figures of one account in one currency, named by the attribute that shows them; 9018 is A
// less B. Amounts are in that currency.
struct TBalanceFigures {
    Double Value155 = 0.0;
    Double Value156 = 0.0;
    Double Value185 = 0.0;
    Double Value186 = 0.0;
    Double Value445 = 0.0;
    Double Value446 = 0.0;
    Double Value604 = 0.0;
    Double Value606 = 0.0;
    Double Value607 = 0.0;
    Double Value990 = 0.0;
    Double Value991 = 0.0;
    Double Value996 = 0.0;
    Double Value1205 = 0.0;
    Double Value1502 = 0.0;
    Double Value1503 = 0.0;
    Double Value9018A = 0.0;
    Double Value9018B = 0.0;
    Double Value9028 = 0.0;
    TDictionary<Integer, String> Fields = {}; // of every other attribute, as text
};

// The name of each figure in a file.
struct TBalanceColumn {
    std::string_view Name;
    Double TBalanceFigures::*Figure;
};
inline constexpr TBalanceColumn BalanceColumns[] = {
    {"155", &TBalanceFigures::Value155},     {"156", &TBalanceFigures::Value156},
    {"185", &TBalanceFigures::Value185},     {"186", &TBalanceFigures::Value186},
    {"445", &TBalanceFigures::Value445},     {"446", &TBalanceFigures::Value446},
    {"604", &TBalanceFigures::Value604},     {"606", &TBalanceFigures::Value606},
    {"607", &TBalanceFigures::Value607},     {"990", &TBalanceFigures::Value990},
    {"991", &TBalanceFigures::Value991},     {"996", &TBalanceFigures::Value996},
    {"1205", &TBalanceFigures::Value1205},   {"1502", &TBalanceFigures::Value1502},
    {"1503", &TBalanceFigures::Value1503},   {"9018A", &TBalanceFigures::Value9018A},
    {"9018B", &TBalanceFigures::Value9018B}, {"9028", &TBalanceFigures::Value9028},
};

} // namespace quorin
