#include "desktop/salidasqt.h"

Salidas SalidasQt() {
    return {};
}
