#include "frame/base/web.h"

using namespace Qt::StringLiterals;

QUrl DireccionDeLaWeb(const QString &texto) {
    // Strict: a text that is not an address as it stands is not made one.
    const QUrl url(texto.trimmed(), QUrl::StrictMode);
    const bool esDeLaWeb = url.scheme() == "http"_L1 || url.scheme() == "https"_L1;
    return url.isValid() && esDeLaWeb && !url.host().isEmpty() ? url : QUrl();
}
