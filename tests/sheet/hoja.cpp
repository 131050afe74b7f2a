#include "tests/sheet/hoja.h"

#include <QDir>
#include <QFile>

#include "upgrade/schema.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

namespace {

QString carpetaDeCaso(const QString &caso) {
    return CarpetaDeFuentes() + u"/tests/sheet/casos/"_s + caso;
}

void cargarCarpeta(const Tienda &tienda, const QString &caso, const QString &interno) {
    const QFileInfoList archivos = QDir(carpetaDeCaso(caso)).entryInfoList({u"*.csv"_s}, QDir::Files);
    ASSERT_FALSE(archivos.isEmpty()) << caso.toStdString();
    for (const QFileInfo &archivo : archivos) {
        const QString nombre = archivo.completeBaseName();
        const esquema::Tabla *tabla = esquema::buscarTabla(nombre);
        ASSERT_NE(tabla, nullptr) << nombre.toStdString();
        QStringList porDefecto;
        if (tabla->columna(u"interno") != nullptr) porDefecto << u"interno="_s + interno;
        const actualizacion::ResultadoCsv r =
            actualizacion::CargarCsv(tienda.perfil(), nombre, archivo.filePath(), false, porDefecto);
        ASSERT_TRUE(r.ok) << r.error.toStdString();
        ASSERT_EQ(r.avisos.join(u'\n').toStdString(), "");
    }
}

}  // namespace

void HojaDePrueba::SetUp() {
    EnAmbosStores::SetUp();
    ctx->SeparadorDecimal = u',';
    ctx->opciones.IVARIN = 21;
    ctx->opciones.IVARNI = 10.5;
    cargarCarpeta(*tienda, u"comun"_s, {});
}

QString HojaDePrueba::cargar(const QString &caso) {
    interno = caso.toUpper();
    cargarCarpeta(*tienda, caso, interno);
    return interno;
}

std::string HojaDePrueba::comoTexto(const HojaDeOperacion &hoja) {
    QString texto;
    for (const papel::Renglon &renglon : hoja.documento.reporte.renglones) {
        if (renglon.hojaNueva || texto.isEmpty()) texto += u"===\n"_s;
        texto += renglon.texto + u"|\n"_s;
    }
    return texto.toStdString();
}

QStringList HojaDePrueba::lineasDe(const HojaDeOperacion &hoja) {
    QStringList lineas;
    for (const papel::Renglon &renglon : hoja.documento.reporte.renglones) lineas << renglon.texto;
    return lineas;
}

std::string HojaDePrueba::leer(const QString &caso, const char *archivo) {
    QFile f(carpetaDeCaso(caso) + u'/' + QLatin1String(archivo));
    return f.open(QIODevice::ReadOnly) ? f.readAll().toStdString() : "<no file>";
}
