#pragma once

#include <QString>

/// A pick list by its kind, on the general list.
class ClListadoEx {
 public:
    /// What is listed: 6, the tariff lists for an item's countries. No other kind shows anything.
    int TipoLista = 0;

    /// Runs the list; the chosen code goes into `resultado`, which stays as it is when nothing was chosen. A
    /// list with nothing to offer is told, as is an error of the store.
    void EjecutarLista(QString &resultado, const QString &paisOrigen, const QString &paisProcedencia) const;
};
