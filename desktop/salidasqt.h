#pragma once
// What leaves the office on paper, plugged in for the screens that stand below it.

#include "frame/salidas.h"

/// The screens and the lists of outputs/.
Salidas SalidasQt();
