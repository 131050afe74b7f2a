#pragma once
// The seam to the user as windows.

#include "frame/dialogs.h"

/// Dialogs on the screen: message boxes with the exact icon, title, buttons and default, input boxes, lists,
/// the automotive question, reports. Marks of a run are shown by the run's own screen, so `avance` stays
/// empty here.
Dialogos DialogosQt();
