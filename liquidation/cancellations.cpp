#include "liquidation/cancellations.h"

const cancelaciones::Enlace *cancelaciones::enlace = nullptr;
