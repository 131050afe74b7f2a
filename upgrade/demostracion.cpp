// The demonstration data built into the program, through the same loader as a user's own files.

#include <QDate>
#include <QFile>

#include "frame/base/ini.h"
#include "frame/config.h"
#include "frame/store/StoreProfiles.h"
#include "upgrade/carga.h"

using namespace Qt::StringLiterals;

// The resource lies in a static library, so somebody has to ask for it by name.
static void prenderRecurso() {
    Q_INIT_RESOURCE(demo);
}

namespace actualizacion {

namespace {

/// The order of loading: codes first, then what speaks of them. A file bears its table's name; the lines of
/// the operations come last, and are numbered as they come.
const char *const tablasDeDemostracion[] = {
    "sta",
    "aduana",
    "pais",
    "condiciondeventa",
    "motivo",
    "motivos",
    "mottmp",
    "bancos",
    "ean",
    "informacion",
    "ventajas",
    "lista",
    "oncca_acuerdo",
    "oncca_categoria",
    "oncca_cortes",
    "oncca_elaborador",
    "oncca_especie",
    "oncca_faneador",
    "oncca_mecoorgbio",
    "oncca_res3106",
    "oncca_sispro",
    "diemchina",
    "divisas",
    "unidades",
    "unidrel",
    "estadomercaderia",
    "tipoemb",
    "codemb",
    "via",
    "puertos",
    "conceptos",
    "conpresu",
    "referencias",
    "tax",
    "ncm",
    "sufidos",
    "control_fecha",
    "lnapifechadedatos",
    "lnapiaclaraciones",
    "lnapiposicionesafectadas",
    "letras",
    "letrasncm",
    "clientes",
    "despadu",
    "vendedor",
    "transporte",
    "ventajasrel",
    "dest",
    "impuestos_internos",
    "catarticulos",
    "articulo_ventaja",
    "caratula",
    "facturas",
    "prorrateo",
    "subitems",
    "stock",
    "stockmov",
    "descargas",
    "certorigen",
    "hval",
    "itempresu",
    "itemref",
    "coment",
};

/// A term that is always near its end: no file can tell it.
void ponerVencimientoCercano(const Destino &destino) {
    constexpr int dias = 20;
    destino.almacen->ejecutar(
        u"update %1 set vencimiento = '%2 00:00:00' "
        "where dit = '24001IT01004455B'"_s.arg(destino.nombre,
                                               QDate::currentDate().addDays(dias).toString(Qt::ISODate)));
}

/// What a first look needs: the two VAT rates (law 23.349, art. 28), without which nothing would show VAT,
/// and every operation in the list, for those who work on the stores. A configuration that is there stays.
void ponerConfiguracion(const QString &rutaDelPerfil, Resultado &resultado) {
    const QString archivo = ArchivoDelPerfil(rutaDelPerfil);
    if (archivo == rutaDelPerfil || QFile::exists(archivo)) return;
    const QString general = u"GENERAL"_s;
    if (EscribirIni(general, u"IVARIN"_s, u"21"_s, archivo) &&
        EscribirIni(general, u"IVARNI"_s, u"10.5"_s, archivo) &&
        EscribirIni(general, u"OperacionesMostrarTODO"_s, u"S"_s, archivo))
        resultado.cambios << u"se creó la configuración %1"_s.arg(archivo);
}

}  // namespace

Resultado CargarDemostracion(const QString &rutaDelPerfil, const Progreso &progreso) {
    prenderRecurso();
    Resultado resultado = Actualizar(rutaDelPerfil, progreso);
    if (!resultado.ok) return resultado;
    resultado.ok = false;
    try {
        for (const char *nombre : tablasDeDemostracion) {
            const QString tabla = QString::fromLatin1(nombre);
            const QString archivo = u":/demo/%1.csv"_s.arg(tabla);
            csv::Lector lector;
            if (!lector.abrir(archivo, resultado.error)) return resultado;
            Destino destino;
            abrirDestino(destino, rutaDelPerfil, tabla);
            // Data of the user's own stay: only an empty table is filled.
            if (!destino.almacen->lista(u"select 1 from %1 limit 1"_s.arg(destino.nombre)).isEmpty())
                continue;
            ResultadoCsv parte;
            cargarLector(destino, lector, archivo, false, {}, progreso, parte);
            if (!parte.avisos.isEmpty()) {
                resultado.error =
                    u"Los datos de demostración de %1 tienen un defecto (%2); avise a quien le "
                    "entregó el programa."_s.arg(tabla, parte.avisos.front());
                return resultado;
            }
            if (tabla == "stock"_L1) ponerVencimientoCercano(destino);
            resultado.cambios << u"%1: %2 filas"_s.arg(tabla).arg(parte.cargadas);
        }
        ponerConfiguracion(StoreProfiles::rutaDeTrabajo(rutaDelPerfil), resultado);
        resultado.ok = true;
    } catch (const Falla &e) {
        resultado.error = e.descripcion;
    }
    return resultado;
}

}  // namespace actualizacion
