#pragma once
// Addresses of the web.

#include <QString>
#include <QUrl>

/// The address that a text holds, blanks around it aside; an empty one unless it is http or https with a
/// host.
QUrl DireccionDeLaWeb(const QString &texto);
