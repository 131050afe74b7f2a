#include "regulatory/lnapireports.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QIODevice>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/files.h"
#include "frame/paper/cells.h"
#include "frame/paper/replace.h"
#include "frame/paper/table.h"
#include "regulatory/letters.h"
#include "regulatory/lnapi.h"

using namespace Qt::StringLiterals;

namespace {

using papel::Clase;

constexpr int cienPorCiento = 100;

const QString finDeXls = u"xls"_s;
const QString finDeXlsx = u"xlsx"_s;
const QString tituloDeGuardar = u"Guardar Reporte de catálogo"_s;
const QString sinNorma = u"SIN DATOS"_s;

/// How each report looks for its articles.
struct FormaDeBusqueda {
    const char *que;      ///< in the title of the workbook
    const char *columna;  ///< where the value stands
    const char *orden;
    bool enParte;  ///< the value is a part of the column
};

const FormaDeBusqueda &formaDeBusqueda(BusquedaDeReporte busqueda) {
    static const FormaDeBusqueda catalogo{"Catálogo", "idcatalogo", "idarticulo", false};
    static const FormaDeBusqueda articulo{"Artículo", "idarticulo", "idcatalogo", false};
    static const FormaDeBusqueda posicion{"Posición", "ncm", "idcatalogo", true};
    switch (busqueda) {
        case BusquedaDeReporte::Catalogo:
            return catalogo;
        case BusquedaDeReporte::Articulo:
            return articulo;
        case BusquedaDeReporte::Posicion:
            break;
    }
    return posicion;
}

QString condicionDeReporte(const FormaDeBusqueda &forma, const QString &valor) {
    const QLatin1StringView columna(forma.columna);
    return forma.enParte ? columna + " like "_L1 + TextoEnComillas(u'%' + valor + u'%')
                         : columna + "="_L1 + TextoEnComillas(valor);
}

/// The columns of a report up to those of the licence; the first ones are keys.
struct ColumnaDeReporte {
    QString columna;
    papel::Columna forma;
};
constexpr std::size_t columnasDeClave = 2;

const std::vector<ColumnaDeReporte> &columnasDeReporte() {
    static const std::vector<ColumnaDeReporte> columnas{
        {u"idcatalogo"_s, {u"Catálogo"_s}},
        {u"idarticulo"_s, {u"Artículo"_s}},
        {u"descripcion"_s, {u"Descripción"_s}},
        {u"Descripcion_Maria"_s, {u"Descripción (DJAI) MARIA"_s}},
        {u"otros"_s, {u"Otros"_s}},
        {u"ncm"_s, {u"NCM"_s}},
        {u"naladisa"_s, {u"NALADISA"_s}},
        {u"preciounitario"_s, {u"Unitario"_s, Clase::Numero}},
        {u"Idpais"_s, {u"País"_s}},
        {u"sufijos"_s, {u"Sufijos"_s}},
        {u"kgneto"_s, {u"Kg Neto"_s, Clase::Numero}},
        {u"usuario"_s, {u"Usuario Modificación"_s}},
        {u"fecha"_s, {u"Fecha Modificación"_s, Clase::Fecha}},
    };
    return columnas;
}

QVariant celdaDeArticulo(const Recordset &rs, const ColumnaDeReporte &c) {
    switch (c.forma.clase) {
        case Clase::Numero:
            return rs.Numero(c.columna);
        case Clase::Fecha: {
            const QString texto = rs.Texto(c.columna);
            const auto momento = QDateTime::fromString(texto, u"yyyy-MM-dd HH:mm:ss"_s);
            if (momento.isValid()) return momento;
            const auto dia = fechas::Leer(texto);
            return dia ? QVariant(*dia) : QVariant(texto);
        }
        case Clase::Texto:
            break;
    }
    return rs.Texto(c.columna);
}

/// What stands beside an article: the norms of its position, or what its letter says.
std::vector<NormaLnapi> licenciasDe(AppContext &ctx, const QString &posicion) {
    std::vector<NormaLnapi> normas = ObtenerNormaLnapi(ctx, posicion);
    if (normas.empty()) {
        const QString letra = obtenerDelNcmLaLetraDeUnaPADada(ctx, posicion);
        normas.push_back({obtenerDescripcionAPartirDeLaLetra(ctx, letra), sinNorma});
    }
    return normas;
}

/// The report as a list; nothing when `avance` stopped it.
std::optional<papel::Tabla> tablaDeReporte(AppContext &ctx, ArticulosDeReporte &articulos,
                                           const AvanceDeReporte &avance) {
    papel::Tabla tabla;
    tabla.titulo = u"Reporte de catálogo"_s;
    tabla.subtitulo = u"%1 %2 - %3"_s.arg(
        QString::fromUtf8(formaDeBusqueda(articulos.busqueda).que), articulos.valor,
        articulos.cantidad == 1 ? u"1 artículo"_s : u"%1 artículos"_s.arg(articulos.cantidad));
    tabla.orientacion = papel::Orientacion::Horizontal;
    for (const ColumnaDeReporte &c : columnasDeReporte()) tabla.columnas.push_back(c.forma);
    tabla.columnas.push_back({u"Certificado de Importación -Licencia No Automática- (4ta Enmienda)"_s});
    tabla.columnas.push_back({u"Norma"_s});
    // Articles of one position stand in a catalogue by the hundred.
    QHash<QString, std::vector<NormaLnapi>> sabidas;
    int hechos = 0;
    int dicho = -1;
    Recordset &rs = articulos.filas;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        const QString posicion = rs.Texto(u"ncm");
        auto licencias = sabidas.constFind(posicion);
        if (licencias == sabidas.constEnd()) licencias = sabidas.insert(posicion, licenciasDe(ctx, posicion));
        papel::Fila fila;
        for (const ColumnaDeReporte &c : columnasDeReporte()) fila.celdas.push_back(celdaDeArticulo(rs, c));
        for (const NormaLnapi &n : *licencias) {
            tabla.filas.push_back(fila);
            tabla.filas.back().celdas.emplace_back(n.lnapi);
            tabla.filas.back().celdas.emplace_back(n.norma);
        }
        ++hechos;
        const int porciento = hechos * cienPorCiento / std::max(1, articulos.cantidad);
        if (avance && porciento != std::exchange(dicho, porciento) && !avance(hechos, articulos.cantidad))
            return {};
    }
    return tabla;
}

/// A cell of the text. One that begins with a quote would be read up to the next one.
QString celdaDeXls(const papel::Tabla &tabla, const papel::Fila &fila, std::size_t columna, QChar separador) {
    if (const auto numero = papel::NumeroDe(tabla, fila, columna)) {
        QString texto = numeros::aTexto(*numero);
        return ReemplazarSeparadorDecimal(texto, separador);
    }
    QString texto = papel::TextoDeCelda(tabla, fila, columna, separador);
    const QString comillasDobles = u"\"\""_s;
    if (columna < columnasDeClave) return "=\""_L1 + texto.replace(u'"', comillasDobles) + u'"';
    if (texto.startsWith(u'"')) return u'"' + texto.replace(u'"', comillasDobles) + u'"';
    return papel::SinFormula(texto);
}

/// UTF-8 behind its mark: the one form whose accents every spreadsheet since 2007 reads without asking, and
/// that anything else that opens texts reads too. Without the mark they would take it for the code page of
/// the workstation.
QString escribirXls(const papel::Tabla &tabla, const QString &archivo, QChar separador) {
    return papel::ReemplazarArchivo(archivo, [&](QIODevice &destino) {
        const QString tabulador = u"\t"_s;
        const QString fin = u"\r\n"_s;
        QStringList celdas;
        for (const papel::Columna &c : tabla.columnas) celdas << c.titulo;
        destino.write((QChar(QChar::ByteOrderMark) + celdas.join(tabulador) + fin).toUtf8());
        for (const papel::Fila &fila : tabla.filas) {
            celdas.clear();
            for (std::size_t c = 0; c < tabla.columnas.size(); ++c)
                celdas << celdaDeXls(tabla, fila, c, separador);
            destino.write((celdas.join(tabulador) + fin).toUtf8());
        }
        return QString();
    });
}

QString finDeReporte(const QString &archivo) {
    return QFileInfo(archivo).suffix().toLower();
}

/// The desktop; the user's folder where there is none.
QString carpetaDelEscritorio() {
    QString escritorio = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    return QFileInfo(escritorio).isDir() ? escritorio : QDir::homePath();
}

/// The file that the user names for the report; empty when the user left.
QString pedirArchivo(const AppContext &ctx, const ArticulosDeReporte &articulos) {
    const QString nombre = NombreSeguro(u"Reporte de catálogo "_s + articulos.valor) + u'.' + finDeXls;
    QString archivo = ctx.dialogos.guardarComo(
        {tituloDeGuardar, QDir(carpetaDelEscritorio()).filePath(nombre),
         u"XLS Delimitado por comas (*.xls);;Libro de Excel (*.xlsx);;All Files (*.*)"_s});
    if (archivo.isEmpty() || finDeReporte(archivo) == finDeXls || finDeReporte(archivo) == finDeXlsx)
        return archivo;
    return archivo + u'.' + finDeXls;
}

bool generarReporte(AppContext &ctx, BusquedaDeReporte busqueda, const QString &valor,
                    const AvanceDeReporte &avance) {
    auto articulos = BuscarArticulosDeReporte(ctx, busqueda, valor);
    if (!articulos) return false;
    if (avance && !avance(0, articulos->cantidad)) return false;
    const QString archivo = pedirArchivo(ctx, *articulos);
    if (archivo.isEmpty() || !PuedeReemplazarse(ctx, archivo, tituloDeGuardar)) return false;
    ReporteDeLicencias reporte;
    {
        const Reloj reloj(ctx.dialogos);
        reporte = EscribirReporte(ctx, *articulos, archivo, avance);
    }
    if (!reporte.hecho) {
        if (reporte.detenido)
            ctx.dialogos.informar(reporte.porque);
        else
            ctx.dialogos.critico(reporte.porque);
        return false;
    }
    const QString ruta = QDir::toNativeSeparators(archivo);
    ctx.dialogos.informar(u"Archivo generado, se procede a abrirse de la ubicación: "_s + ruta);
    if (!ctx.dialogos.abrirArchivo(archivo))
        ctx.dialogos.advertir(u"No hay un programa que abra %1; ábralo desde su carpeta."_s.arg(ruta));
    return true;
}

}  // namespace

QString TextoDeAvance(int hechos, int cantidad) {
    return QString::number(hechos * cienPorCiento / std::max(1, cantidad)) + " %"_L1;
}

std::optional<ArticulosDeReporte> BuscarArticulosDeReporte(AppContext &ctx, BusquedaDeReporte busqueda,
                                                           const QString &valor) {
    const FormaDeBusqueda &forma = formaDeBusqueda(busqueda);
    ArticulosDeReporte articulos{busqueda, valor.trimmed(), {}, 0};
    if (forma.enParte && articulos.valor.size() < minimoDePosicionBuscada) {
        ctx.dialogos.advertir(u"Ingrese al menos %1 caracteres"_s.arg(minimoDePosicionBuscada));
        return {};
    }
    const QString condicion = condicionDeReporte(forma, articulos.valor);
    const QLatin1StringView columna(forma.columna);
    if (!Consultar(
            ctx, entidad::catalogos,
            "select idcatalogo, idarticulo, ncm, descripcion, naladisa, preciounitario, Idpais, sufijos, "
            "kgneto, Descripcion_Maria, otros, usuario, fecha "
            "from catarticulos "
            "where "_L1 +
                condicion +
                " "
                "ORDER BY "_L1 +
                QLatin1StringView(forma.orden),
            articulos.filas)) {
        ctx.dialogos.informar(u"No se han encontrado los datos buscados"_s);
        return {};
    }
    const QString cuenta = "COUNT("_L1 + columna + ") AS Cantidad "_L1;
    Recordset rs;
    Consultar(ctx, entidad::catalogos,
              "select "_L1 + (forma.enParte ? cuenta : columna + ", "_L1 + cuenta) +
                  "from catarticulos "
                  "where "_L1 +
                  condicion + (forma.enParte ? QString() : " GROUP BY "_L1 + columna),
              rs);
    articulos.cantidad = rs.Eof() ? 0 : static_cast<int>(rs.Numero(u"Cantidad"));
    return articulos;
}

ReporteDeLicencias EscribirReporte(AppContext &ctx, ArticulosDeReporte &articulos, const QString &archivo,
                                   const AvanceDeReporte &avance) {
    ReporteDeLicencias reporte;
    const auto tabla = tablaDeReporte(ctx, articulos, avance);
    if (!tabla) {
        reporte.detenido = true;
        reporte.porque = u"El reporte se detuvo a su pedido; no se escribió ningún archivo."_s;
        return reporte;
    }
    reporte.porque = finDeReporte(archivo) == finDeXlsx ? papel::EscribirXlsx(*tabla, archivo)
                                                        : escribirXls(*tabla, archivo, ctx.SeparadorDecimal);
    reporte.hecho = reporte.porque.isEmpty();
    reporte.filas = static_cast<int>(tabla->filas.size());
    return reporte;
}

bool ReporteCatalogo(AppContext &ctx, const QString &valor, const AvanceDeReporte &avance) {
    return generarReporte(ctx, BusquedaDeReporte::Catalogo, valor, avance);
}

bool ReporteArticulo(AppContext &ctx, const QString &valor, const AvanceDeReporte &avance) {
    return generarReporte(ctx, BusquedaDeReporte::Articulo, valor, avance);
}

bool ReportePosicion(AppContext &ctx, const QString &valor, const AvanceDeReporte &avance) {
    return generarReporte(ctx, BusquedaDeReporte::Posicion, valor, avance);
}
