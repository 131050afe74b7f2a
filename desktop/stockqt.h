#pragma once
// The windows that the stock opens.

#include "stock/link.h"

/// The screens of taking and of cancellations, for stock::Enchufar.
stock::Pantallas PantallasDeStock();
