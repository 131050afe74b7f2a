#include "subitems/ReferenceValues.h"

std::function<void(const oReferenceValues::Consulta &)> oReferenceValues::GetValoresCriterio;
