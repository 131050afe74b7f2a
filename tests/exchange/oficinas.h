#pragma once
// Two offices: one with the demonstration data on the engine of the parameter, and another with empty stores.

#include <QByteArray>

#include "operations/exchange.h"
#include "tests/support/tienda.h"

class DosOficinas : public EnAmbosStores {
 protected:
    void SetUp() override;
    bool conDemostracion() const override { return true; }

    QString en(const char *nombre) const { return tienda->carpeta() + u'/' + QLatin1String(nombre); }
    /// Arms and liquidates a demonstration operation, and puts rows into every table that it leaves with.
    void preparar(const QString &interno);
    /// Exports; the test fails when that does.
    void exportar(const QStringList &claves, const QString &archivo) { exportarDe(*ctx, claves, archivo); }
    static void exportarDe(AppContext &de, const QStringList &claves, const QString &archivo);
    /// Imports all operations of a file as they come.
    static intercambio::Importacion importarEn(
        AppContext &a, const QString &archivo,
        intercambio::Decision decision = intercambio::Decision::Importar);
    /// The other office, made when it is first asked for.
    AppContext &otra(const char *etiqueta = "ACCESS");
    static QString uno(AppContext &de, const QString &sql,
                       const QString &entidad = QStringLiteral("INTERNOS"));
    /// Rows of all tables of an operation, by table: "facturas 2,subitems 20".
    static QString cuentas(AppContext &de, const QString &interno);

    static QByteArray bytesDe(const QString &archivo);
    /// The lines of an exported file.
    static QByteArray expandido(const QString &archivo);
    /// A file of such lines, with the checksum that they have.
    static void comprimir(const QByteArray &lineas, const QString &archivo, bool conSuma = false);

 private:
    std::unique_ptr<Tienda> otraTienda_;
    Registro otroRegistro_;
    std::unique_ptr<AppContext> otroCtx_;
};
