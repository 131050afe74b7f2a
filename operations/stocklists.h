#pragma once
// The stock among the lists.

#include "outputs/lists.h"

/// Every line of the stock.
const listas::Lista &ListaDeStock();
/// The inputs report of an operation.
const listas::Lista &ListaDeInsumos();
