// An office's store of the version before, full of rows: it is brought up, and every row is still there.

#include <gtest/gtest.h>

#include <QMap>
#include <QSqlError>
#include <QSqlQuery>

#include "tests/support/tienda.h"
#include "upgrade/schema.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

using actualizacion::Resultado;

namespace {

/// The tables that the version before did not have.
bool esNueva(const esquema::Tabla &t) {
    static const QStringList otras{u"stock"_s, u"stockmov"_s, u"transferidas"_s, u"certorigen"_s};
    return t.nombre.startsWith("oncca"_L1) || t.nombre.startsWith("letras"_L1) || otras.contains(t.nombre);
}

class StoreAnterior : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }

    void motor(const QString &sql, const QString &entidad) {
        QSqlQuery consulta(ctx->conexion(entidad).coneccion());
        EXPECT_TRUE(consulta.exec(sql))
            << sql.toStdString() << ": " << consulta.lastError().text().toStdString();
    }
    /// Every row of every table that the version before had.
    QMap<QString, QString> filasPresentes() {
        QMap<QString, QString> todas;
        for (const esquema::Tabla &t : esquema::tablas()) {
            if (esNueva(t) || t.nombre == "version"_L1) continue;
            QStringList columnas;
            for (const esquema::Columna &c : t.columnas) columnas << u"[%1]"_s.arg(c.nombre);
            QStringList lineas =
                filas(u"select %1 from %2"_s.arg(columnas.join(u','), t.nombre), t.entidad).split(u'\n');
            lineas.sort();
            todas.insert(t.nombre, lineas.join(u'\n'));
        }
        return todas;
    }
    /// Takes away what the version before had not: its tables, every index, and its number.
    void hacerAnterior() {
        for (const esquema::Tabla &t : esquema::tablas()) {
            if (esNueva(t)) {
                motor(u"drop table %1"_s.arg(t.nombre), t.entidad);
                continue;
            }
            for (const esquema::Indice &i : t.indices) motor(u"drop index \"%1\""_s.arg(i.nombre), t.entidad);
        }
        ejecutar("update version set valor = '312' where propiedad = 'version'");
    }
    void sonLasMismas(const QMap<QString, QString> &antes) {
        const QMap<QString, QString> ahora = filasPresentes();
        for (auto t = antes.constBegin(); t != antes.constEnd(); ++t)
            EXPECT_EQ(ahora.value(t.key()).toStdString(), t.value().toStdString()) << t.key().toStdString();
    }
};

TEST_P(StoreAnterior, IsBroughtUpWithoutLosingARowAndASecondRunChangesNothing) {
    const QMap<QString, QString> antes = filasPresentes();
    ASSERT_FALSE(antes.value(u"catarticulos"_s).isEmpty());
    hacerAnterior();
    ctx->DataManager.CloseAllDataConnection();
    Resultado r = actualizacion::Actualizar(tienda->perfil());
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    for (const esquema::Tabla &t : esquema::tablas()) {
        if (!esNueva(t)) continue;
        EXPECT_TRUE(r.cambios.contains(u"%1: se creó la tabla %2"_s.arg(t.entidad, t.nombre)))
            << t.nombre.toStdString();
        EXPECT_EQ(valor(u"select count(*) as n from "_s + t.nombre, t.entidad), u"0"_s);
    }
    sonLasMismas(antes);
    ctx->DataManager.CloseAllDataConnection();
    r = actualizacion::Actualizar(tienda->perfil());
    EXPECT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cambios, QStringList());
    sonLasMismas(antes);
}

TEST_P(StoreAnterior, WithDemonstrationDataGainsThoseOfItsNewTablesAlone) {
    const QMap<QString, QString> antes = filasPresentes();
    hacerAnterior();
    ctx->DataManager.CloseAllDataConnection();
    Resultado r = actualizacion::CargarDemostracion(tienda->perfil());
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_NE(valor(u"select count(*) as n from letras"_s, u"NCM"_s), u"0"_s);
    sonLasMismas(antes);
    ctx->DataManager.CloseAllDataConnection();
    r = actualizacion::CargarDemostracion(tienda->perfil());
    EXPECT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cambios, QStringList());
}

EN_AMBOS_STORES(StoreAnterior);

}  // namespace
