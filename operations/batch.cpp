#include "operations/batch.h"

#include <QJsonArray>
#include <algorithm>
#include <map>
#include <optional>
#include <variant>

#include "assembly/run.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/jsondialogs.h"
#include "frame/startup.h"
#include "header/changes.h"
#include "liquidation/consistency.h"
#include "liquidation/review.h"
#include "operations/batchchanges.h"
#include "operations/batchwork.h"
#include "operations/browser.h"
#include "operations/lifecycle.h"
#include "operations/operationkey.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

using L = QLatin1String;

using entidad::internos;

double contar(AppContext &ctx, const QString &tabla, const QString &clave, const char *cola = "") {
    Recordset rs;
    Consultar(
        ctx, internos,
        "select count(*) as valor from "_L1 + tabla + " where interno = "_L1 + EnComillas(clave) + L(cola),
        rs);
    return rs.Numero(u"valor");
}

int armarTomada(const Trabajo &t) {
    AppContext &ctx = t.ctx;
    const QString &clave = t.orden.clave;
    if (t.orden.tiene("forzar")) MarcarArmado(ctx, clave, true);
    OpcionesDeArmado opciones;
    const PasoDeArmado paso = PrepararArmado(ctx, clave, t.tablero, opciones);
    bool entera = true;
    if (paso == PasoDeArmado::Armar) {
        entera = Generar(ctx, clave, opciones);
        if (ctx.ChequeoArmado != "SI"_L1) ArmadoFallido(ctx, clave);
    } else {
        ctx.ChequeoArmado = paso == PasoDeArmado::YaArmado ? u"SI"_s : u"NO"_s;
    }
    t.resultado[u"armado"_s] = ctx.ChequeoArmado;
    t.resultado[u"corrida"_s] = paso == PasoDeArmado::Armar;
    TrasElTrabajo(!entera, [&] {
        t.resultado[u"items"_s] = contar(ctx, u"item"_s, clave, " and id<>0");
        t.resultado[u"grupos"_s] = contar(ctx, u"groupsubitems"_s, clave);
    });
    return entera ? bien : falla;
}

int armar(const Trabajo &t) {
    return ConLaOperacion(t, [&t] { return armarTomada(t); });
}

int liquidarTomada(const Trabajo &t) {
    AppContext &ctx = t.ctx;
    ctx.CalcularCoeficiente = t.tablero.ChCOEF;
    ctx.LiquidacionPendiente = true;
    ClassLiquidacion calculo(ctx, t.orden.clave);
    const ResultadoRecalculo r = RecalcularOperacion(ctx, t.orden.clave, calculo);
    DecirLiquidacion(t, r);
    return bien;
}

int liquidar(const Trabajo &t) {
    return ConLaOperacion(t, [&t] { return liquidarTomada(t); });
}

int listar(const Trabajo &t) {
    FiltroDeInternos filtro;
    filtro.todas = true;
    const std::vector<FilaDeInterno> filas = LeerInternos(t.ctx, filtro);
    for (const FilaDeInterno &f : filas)
        t.salida({{u"tipo"_s, u"operacion"_s},
                  {u"interno"_s, f.Interno},
                  {u"clase"_s, f.tipo},
                  {u"subregimen"_s, f.SubRegimen},
                  {u"cliente"_s, f.Cliente},
                  {u"despachante"_s, f.Despachante},
                  {u"vendedor"_s, f.Vendedor},
                  {u"detalle"_s, f.detalle}});
    t.resultado[u"cantidad"_s] = static_cast<int>(filas.size());
    return bien;
}

int crear(const Trabajo &t) {
    const bool hecho = CrearInterno(t.ctx, t.orden.clave);
    t.resultado[u"creado"_s] = hecho;
    return hecho ? bien : falla;
}

int borrar(const Trabajo &t) {
    // The screen's own question: without a "Si" among the answers nothing is removed.
    const bool confirmado = ConfirmarEliminacion(t.ctx, t.orden.clave);
    const bool hecho = confirmado && EliminarSinPreguntar(t.ctx, t.orden.clave);
    t.resultado[u"borrado"_s] = hecho;
    return hecho || !confirmado ? bien : falla;
}

int comprobar(const Trabajo &t) {
    t.resultado[u"diferencias"_s] = ComprobarInterno(t.ctx, t.orden.clave);
    return bien;
}

/// Whether a command's first argument is the key of an operation, and whether that has to be there.
enum class Sobre { Existente, Nueva, Ninguna };

/// One command: how it is called, what it asks of the store first, and what it does.
struct Fila {
    consola::Comando comando = {};
    Sobre sobre = Sobre::Existente;
    int (*hacer)(const Trabajo &) = nullptr;
    /// What is wrong with the file of changes, as one sentence; null for a command that reads none.
    QString (*defectoDeCambios)(const QJsonObject &) = nullptr;
    bool dePapel = false;  ///< draws pages
};

QString defectoDeClave(const QString &clave) {
    return clave.size() > largoDeClave ? u"la clave de una operación tiene 40 caracteres como máximo"_s
                                       : QString();
}

QString defectoDeItem(const QString &numero) {
    bool esNumero = false;
    return numero.toInt(&esNumero) >= 0 && esNumero ? QString()
                                                    : u"\"%1\" no es un número de item"_s.arg(numero);
}

consola::Opcion salidaDePapel(const char *clases, consola::Control control = nullptr) {
    return {.nombre = "salida",
            .valor = clases,
            .texto = "El archivo que se escribe; el final de su nombre dice de qué clase es.",
            .obligatoria = true,
            .control = control};
}

std::vector<consola::Opcion> opcionesDeLicencias() {
    return {{.nombre = "catalogo",
             .valor = "CATALOGO",
             .texto = "Los artículos de este catálogo.",
             .grupo = "busqueda"},
            {.nombre = "articulo",
             .valor = "ARTICULO",
             .texto = "Este artículo, en todos los catálogos.",
             .grupo = "busqueda"},
            {.nombre = "posicion",
             .valor = "POSICION",
             .texto = "Los artículos de esta posición o parte de ella, en todos los catálogos.",
             .control = DefectoDePosicionBuscada,
             .grupo = "busqueda"},
            salidaDePapel("ARCHIVO.xls|.xlsx", DefectoDeSalidaDeLicencias)};
}

std::vector<consola::Opcion> opcionesDeCargaDeStock() {
    return {{.nombre = "declaracion",
             .valor = "NUMERO",
             .texto = "El número de la declaración de importación.",
             .obligatoria = true},
            {.nombre = "fecha",
             .valor = "FECHA",
             .texto = "Su fecha; sin ella, la de hoy o la ya cargada.",
             .control = DefectoDeFecha},
            {.nombre = "vencimiento",
             .valor = "FECHA",
             .texto = "El vencimiento; sin él, el del plazo de la carátula o el ya cargado.",
             .control = DefectoDeFecha},
            {.nombre = "ctit", .valor = "NUMERO", .texto = "El expediente del CTIT."},
            {.nombre = "merma",
             .valor = "PORCENTAJE",
             .texto = "Mermas y pérdidas.",
             .control = DefectoDePorcentaje}};
}

std::vector<consola::Opcion> opcionesDeBusquedaDeStock() {
    return {{.nombre = "cliente", .valor = "TEXTO", .texto = "Su CUIT o una parte del nombre."},
            {.nombre = "declaracion", .valor = "TEXTO", .texto = "El comienzo de su número."},
            {.nombre = "articulo",
             .valor = "TEXTO",
             .texto = "Una parte del catálogo, del artículo o de la descripción."},
            {.nombre = "posicion", .valor = "TEXTO", .texto = "El comienzo de la posición."},
            {.nombre = "con-saldo", .texto = "Sólo las que tienen saldo."}};
}

consola::Argumento lineaDeOperacion(bool optativa) {
    return {.nombre = "LINEA",
            .texto = "el número de una línea de la operación",
            .control = DefectoDeLinea,
            .optativo = optativa};
}

const std::vector<Fila> &tablaDeComandos() {
    static const std::vector<consola::Argumento> clave{
        {.nombre = "CLAVE", .texto = "la clave de una operación", .control = defectoDeClave}};
    static const consola::Opcion cambios{.nombre = "cambios",
                                         .valor = "ARCHIVO",
                                         .texto = "Los cambios: un objeto JSON.",
                                         .obligatoria = true};
    static const consola::Argumento catalogo{
        .nombre = "CATALOGO", .texto = "el código de un catálogo", .control = DefectoDeCatalogo};
    static const std::vector<Fila> todas{
        {.comando = {.nombre = "armar",
                     .texto = "Arma la operación: grupos, items y liquidación, si su marca lo pide.",
                     .argumentos = clave,
                     .opciones = {{.nombre = "forzar", .texto = "La arma aunque la marca no lo pida."}}},
         .hacer = armar},
        {.comando = {.nombre = "liquidar",
                     .texto = "Vuelve a calcular derechos y tributos de los items, y dice los totales.",
                     .argumentos = clave},
         .hacer = liquidar},
        {.comando = {.nombre = "item",
                     .texto = "Cambia un item armado, o con 0 la operación: campos, conceptos, información, "
                              "ventajas y kilos.",
                     .argumentos = {clave.front(),
                                    {.nombre = "N", .texto = "el número del item", .control = defectoDeItem}},
                     .opciones = {cambios}},
         .hacer = CambiarItem,
         .defectoDeCambios = DefectoDeCambiosDeItem},
        {.comando = {.nombre = "bultos",
                     .texto = "Cambia los bultos y el transporte.",
                     .argumentos = clave,
                     .opciones = {cambios}},
         .hacer = CambiarBultos,
         .defectoDeCambios = DefectoDeCambiosDeBultos},
        {.comando = {.nombre = "comprobar",
                     .texto = "Compara la carátula y los items con las líneas, y dice las diferencias.",
                     .argumentos = clave},
         .hacer = comprobar},
        {.comando = {.nombre = "transferir",
                     .texto = "Comprueba la operación y escribe su declaración en un documento XML, que "
                              "reemplaza al que haya. Si hay diferencias lo pregunta.",
                     .argumentos = clave,
                     .opciones = {{.nombre = "salida",
                                   .valor = "ARCHIVO",
                                   .texto = "El documento que se escribe.",
                                   .obligatoria = true}}},
         .hacer = Transferir},
        {.comando = {.nombre = "imprimir",
                     .texto =
                         "Escribe la hoja de liquidación de un rango de items; el 0 es el de la operación.",
                     .argumentos = clave,
                     .opciones = {{.nombre = "desde",
                                   .valor = "N",
                                   .texto = "El primer item.",
                                   .obligatoria = true,
                                   .control = defectoDeItem},
                                  {.nombre = "hasta",
                                   .valor = "N",
                                   .texto = "El último item.",
                                   .obligatoria = true,
                                   .control = defectoDeItem},
                                  {.nombre = "subitems", .texto = "Con los subitems de cada item."},
                                  salidaDePapel("ARCHIVO.pdf|.txt")}},
         .hacer = Imprimir,
         .dePapel = true},
        {.comando = {.nombre = "presupuesto",
                     .texto = "Escribe el presupuesto de la operación.",
                     .argumentos = clave,
                     .opciones = {salidaDePapel("ARCHIVO.html|.pdf")}},
         .hacer = Presupuestar,
         .dePapel = true},
        {.comando = {.nombre = "lista",
                     .texto =
                         "Escribe una lista: las líneas de una operación, sus bultos, sus certificados de "
                         "origen, su hoja de valoración, un catálogo de artículos o todas las "
                         "operaciones.",
                     .argumentos =
                         {{.nombre = "NOMBRE", .texto = "la lista, por su nombre", .control = DefectoDeLista},
                          {.nombre = "CLAVE",
                           .texto = "la operación o el catálogo, para la lista que es de uno",
                           .optativo = true}},
                     .opciones = {salidaDePapel("ARCHIVO.pdf|.xlsx|.csv", DefectoDeSalidaDeLista)},
                     .control = DefectoDeClaveDeLista},
         .sobre = Sobre::Ninguna,
         .hacer = EscribirLista,
         .dePapel = true},
        {.comando = {.nombre = "masivo",
                     .texto = "Cambia una columna en todas las líneas de la operación.",
                     .argumentos = {clave.front(),
                                    {.nombre = "ACCION",
                                     .texto = "el cambio, por su nombre",
                                     .control = DefectoDeCambioMasivo},
                                    {.nombre = "VALOR",
                                     .texto = "lo que se establece, para el cambio que lo lleva",
                                     .optativo = true}},
                     .control = DefectoDeValorDeCambio},
         .hacer = CambiarLineas},
        {.comando = {.nombre = "filtrar",
                     .texto = "Dice las líneas de la operación que un filtro muestra.",
                     .argumentos = {clave.front(),
                                    {.nombre = "FILTRO",
                                     .texto = "el filtro, por su número o su nombre",
                                     .control = DefectoDeFiltro},
                                    {.nombre = "VALOR",
                                     .texto = "lo que se busca, para el filtro que lo lleva",
                                     .optativo = true}},
                     .control = DefectoDeValorDeFiltro},
         .hacer = FiltrarLineas},
        {.comando = {.nombre = "licencias",
                     .texto = "Escribe un reporte de artículos de catálogo con las licencias de sus "
                              "posiciones.",
                     .opciones = opcionesDeLicencias()},
         .sobre = Sobre::Ninguna,
         .hacer = EscribirLicencias},
        {.comando = {.nombre = "catalogo cargar",
                     .texto =
                         "Carga artículos de un CSV con encabezado en un catálogo, y dice qué pasó con cada "
                         "línea que no sirve.",
                     .argumentos = {catalogo, {.nombre = "ARCHIVO", .texto = "el CSV"}},
                     .opciones = {{.nombre = "reemplazar",
                                   .texto = "Cambia los artículos que el catálogo ya tiene."}}},
         .sobre = Sobre::Ninguna,
         .hacer = CargarCatalogoDeArchivo},
        {.comando = {.nombre = "catalogo listar",
                     .texto = "Dice cada catálogo en una línea, o cada artículo de uno.",
                     .argumentos = {{.nombre = "CATALOGO",
                                     .texto = "el código de un catálogo",
                                     .control = DefectoDeCatalogo,
                                     .optativo = true}}},
         .sobre = Sobre::Ninguna,
         .hacer = ListarCatalogos},
        {.comando = {.nombre = "catalogo mover",
                     .texto = "Mueve artículos a otro catálogo, si entre las respuestas está el Si que lo "
                              "confirma.",
                     .argumentos = {catalogo,
                                    {.nombre = "OTRO",
                                     .texto = "el catálogo adonde van",
                                     .control = DefectoDeCatalogo}},
                     .opciones = {{.nombre = "articulo",
                                   .valor = "CODIGO",
                                   .texto = "Un artículo; sin ella, todos los del catálogo.",
                                   .repetible = true}}},
         .sobre = Sobre::Ninguna,
         .hacer = MoverArticulos},
        {.comando = {.nombre = "stock cargar",
                     .texto = "Carga en el stock las líneas de una importación temporal armada; si ya están, "
                              "las diferencias, si entre las respuestas está el Si que las confirma.",
                     .argumentos = clave,
                     .opciones = opcionesDeCargaDeStock()},
         .hacer = CargarStock},
        {.comando = {.nombre = "stock tomar",
                     .texto = "Toma del stock la cantidad de una línea: de lo elegido, y después de lo que "
                              "vence primero.",
                     .argumentos = {clave.front(), lineaDeOperacion(false)},
                     .opciones = {{.nombre = "de",
                                   .valor = "NUMERO[:CANTIDAD]",
                                   .texto = "Una línea del stock de la que se toma, hasta esa cantidad.",
                                   .repetible = true,
                                   .control = DefectoDeParte}}},
         .hacer = TomarDelStock},
        {.comando = {.nombre = "stock devolver",
                     .texto = "Devuelve al stock lo que tomó una línea, o toda la operación.",
                     .argumentos = {clave.front(), lineaDeOperacion(true)}},
         .hacer = DevolverAlStock},
        {.comando = {.nombre = "stock revisar",
                     .texto = "Cuenta todo el stock de nuevo y dice lo que no coincide.",
                     .opciones = {{.nombre = "reparar", .texto = "Corrige lo que se puede corregir."}}},
         .sobre = Sobre::Ninguna,
         .hacer = RevisarStock},
        {.comando = {.nombre = "stock listar",
                     .texto = "Dice cada línea del stock, con su saldo y su vencimiento.",
                     .opciones = opcionesDeBusquedaDeStock()},
         .sobre = Sobre::Ninguna,
         .hacer = ListarStock},
        {.comando = {.nombre = "exportar",
                     .texto = "Escribe operaciones enteras en un archivo, para otra oficina.",
                     .argumentos = {{.nombre = "CLAVE",
                                     .texto = "la clave de una operación",
                                     .control = defectoDeClave,
                                     .repetible = true}},
                     .opciones = {{.nombre = "salida",
                                   .valor = "ARCHIVO",
                                   .texto = "El archivo que se escribe.",
                                   .obligatoria = true}}},
         .sobre = Sobre::Ninguna,
         .hacer = ExportarOperaciones},
        {.comando =
             {.nombre = "importar",
              .texto = "Trae las operaciones de un archivo; por cada una que ya existe pregunta qué se hace.",
              .argumentos = {{.nombre = "ARCHIVO", .texto = "el archivo exportado"}},
              .opciones = {{.nombre = "existentes",
                            .valor = "omitir|reemplazar|nueva",
                            .texto = "Qué se hace con las que ya existen, sin preguntar.",
                            .control = DefectoDeExistentes}}},
         .sobre = Sobre::Ninguna,
         .hacer = ImportarOperaciones},
        {.comando = {.nombre = "crear", .texto = "Crea una operación vacía.", .argumentos = clave},
         .sobre = Sobre::Nueva,
         .hacer = crear},
        {.comando = {.nombre = "borrar",
                     .texto = "Borra la operación, si entre las respuestas está el Si que lo confirma.",
                     .argumentos = clave},
         .hacer = borrar},
        {.comando = {.nombre = "listar", .texto = "Dice cada operación en una línea."},
         .sobre = Sobre::Ninguna,
         .hacer = listar},
    };
    return todas;
}

/// Null for a command that there is not.
const Fila *buscarComando(const QString &nombre) {
    const std::vector<Fila> &todas = tablaDeComandos();
    const auto fila = std::find_if(todas.begin(), todas.end(),
                                   [&nombre](const Fila &f) { return nombre == L(f.comando.nombre); });
    return fila == todas.end() ? nullptr : &*fila;
}

}  // namespace

QString DefectoDeCambios(const Orden &orden) {
    const Fila *fila = buscarComando(orden.comando);
    return fila == nullptr || fila->defectoDeCambios == nullptr ? QString()
                                                                : fila->defectoDeCambios(orden.cambios);
}

std::vector<consola::Comando> Comandos() {
    std::vector<consola::Comando> todos;
    for (const Fila &f : tablaDeComandos()) todos.push_back(f.comando);
    return todos;
}

bool EsDePapel(const char *palabra) {
    const Fila *fila = buscarComando(QString::fromLocal8Bit(palabra));
    return fila != nullptr && fila->dePapel;
}

Orden OrdenDe(const consola::Pedido &pedido) {
    Orden orden{pedido.comando, {}, pedido.argumentos, pedido.opciones};
    const Fila *fila = buscarComando(pedido.comando);
    if (fila != nullptr && fila->sobre != Sobre::Ninguna && !orden.argumentos.isEmpty())
        orden.clave = orden.argumentos.takeFirst();
    return orden;
}

bool VersionAdecuada(AppContext &ctx) {
    // What cannot be reached or read tells so by itself.
    Recordset rs;
    Consultar(ctx, internos, u"select 1 as uno"_s, rs);
    int version = 0;
    try {
        version = LeerVersionDelStore(ctx);
    } catch (const Falla &) {
        // Without a table of versions it is no store of ours, or one of long ago.
    }
    if (version >= versionMinima) return true;
    ctx.dialogos.critico(
        u"Los stores del perfil %1 son anteriores a la versión %2, que se necesita; actualícelos "
        "con %3."_s.arg(ctx.DataManager.rutaDelPerfil(), QString::number(versionMinima),
                        ctx.DataManager.comoActualizar()));
    return false;
}

int Ejecutar(AppContext &ctx, const Orden &orden, const EleccionDelTablero &tablero,
             const SalidaDeObjetos &salida, QJsonObject &resultado) {
    const Fila *fila = buscarComando(orden.comando);
    if (fila == nullptr) throw Falla{0, u"lote"_s, u"No existe el comando \"%1\"."_s.arg(orden.comando), {}};
    resultado[u"resultado"_s] = orden.comando;
    if (!orden.clave.isEmpty()) resultado[u"interno"_s] = orden.clave;
    if (fila->sobre == Sobre::Existente && !HayOperacion(ctx, orden.clave)) return falla;
    return fila->hacer({ctx, orden, tablero, salida, resultado});
}

}  // namespace lote
