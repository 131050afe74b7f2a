#pragma once
// Base of the tests of connections and recordsets, on both stores.

#include "tests/support/tienda.h"

class StoreConectado : public EnAmbosStores {
 protected:
    Conexion &internos() { return ctx->conexion(QStringLiteral("INTERNOS")); }
    bool esServidor() const { return std::string(GetParam()) == "SQL"; }
    /// Three groups of one operation; the first two hold the same values in every column.
    void sembrarGrupos() {
        for (const char *fob : {"10", "10", "25.5"})
            ejecutar(QStringLiteral("insert into groupsubitems (id,idsub,interno,ncm,descripcion,fob,kgneto) "
                                    "values (1,7,'A','8409.91.12.100G','Válvula',%1,2)")
                         .arg(QLatin1String(fob)));
    }
    /// The error that `sql` raises; a statement that runs gives one without text.
    Falla errorDe(const QString &sql, const QString &entidad = QStringLiteral("INTERNOS")) {
        try {
            Recordset rs;
            Consultar(*ctx, entidad, sql, rs);
        } catch (const Falla &e) {
            return e;
        }
        return {};
    }
};
