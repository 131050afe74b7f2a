#include "operations/operationrows.h"

#include <algorithm>
#include <numeric>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"

using namespace Qt::StringLiterals;

namespace operacion {

namespace {

using L = QLatin1String;

using entidad::internos;

constexpr std::size_t filasPorPagina = 2000;
constexpr qsizetype sentenciasJuntas = 200;
constexpr qsizetype largoJuntas = 1 << 18;

bool mismoNombre(const QString &nombre, const char *otro) {
    return nombre.compare(L(otro), Qt::CaseInsensitive) == 0;
}

QString deLaClaveDe(const QString &interno) {
    return " where interno = "_L1 + EnComillas(interno);
}

const Nombra *nombraDe(const Tabla &tabla, const QString &columna) {
    const auto n = std::find_if(tabla.nombra.begin(), tabla.nombra.end(),
                                [&columna](const Nombra &una) { return mismoNombre(columna, una.columna); });
    return n == tabla.nombra.end() ? nullptr : &*n;
}

QStringList queNoVan(const Tabla &tabla) {
    return {u"interno"_s, L(tabla.numerada)};
}

}  // namespace

const std::vector<Tabla> &Tablas() {
    static const std::vector<Tabla> todas{
        {.entidad = "INTERNOS", .nombre = "subitems", .numerada = "id"},
        {.entidad = "INTERNOS", .nombre = "certorigen", .numerada = "id"},
        {.entidad = "INTERNOS", .nombre = "facturas"},
        {.entidad = "INTERNOS", .nombre = "prorrateo"},
        {.entidad = "INTERNOS", .nombre = "itempresu"},
        {.entidad = "INTERNOS", .nombre = "itemref"},
        {.entidad = "INTERNOS",
         .nombre = "groupsubitems",
         .nombra = {{"idsub", "subitems"}},
         .porPaginas = "idsub"},
        {.entidad = "INTERNOS",
         .nombre = "idrel",
         .nombra = {{"idroot", "subitems"}, {"idsub", "subitems"}},
         .porPaginas = "idsub"},
        {.entidad = "INTERNOS", .nombre = "item", .porPaginas = "id"},
        {.entidad = "INTERNOS", .nombre = "itemliq", .porPaginas = "iditem"},
        {.entidad = "INTERNOS", .nombre = "itemventaja", .porPaginas = "iditem"},
        {.entidad = "INTERNOS", .nombre = "iteminfo", .porPaginas = "iditem"},
        {.entidad = "INTERNOS", .nombre = "liqcero"},
        {.entidad = "INTERNOS", .nombre = "sysflag"},
        {.entidad = "INTERNOS", .nombre = "descargas"},
        {.entidad = "INTERNOS", .nombre = "transferidas", .deSuHistoria = true},
        {.entidad = "SYSTABLAS", .nombre = "hval"},
        {.entidad = "SYSTABLAS", .nombre = "hvalexp"},
        {.entidad = "SYSTABLAS", .nombre = "coment"},
        {.entidad = "INTERNOS", .nombre = "caratula"},
    };
    return todas;
}

const Tabla *BuscarTabla(const QString &nombre) {
    const auto t = std::find_if(Tablas().begin(), Tablas().end(),
                                [&nombre](const Tabla &una) { return mismoNombre(nombre, una.nombre); });
    return t == Tablas().end() ? nullptr : &*t;
}

QVariant ValorDeFila(const QVariant &valor) {
    if (valor.isNull()) return {};
    switch (valor.typeId()) {
        case QMetaType::Double:
        case QMetaType::LongLong:
            // What a statement would spell: the stores agree in fifteen digits.
            return numeros::aTexto(valor.toDouble()).toDouble();
        default:
            return EsNull(valor);
    }
}

Columnas::Columnas(const Recordset &rs, const QStringList &sin) {
    lugares.resize(static_cast<std::size_t>(rs.columnas()));
    std::iota(lugares.begin(), lugares.end(), 0);
    const auto nombre = [&rs](int lugar) { return rs.nombreDeColumna(lugar).toLower(); };
    std::erase_if(lugares, [&](int lugar) { return sin.contains(nombre(lugar)); });
    // Older stores have columns in the order in which they came.
    std::sort(lugares.begin(), lugares.end(), [&](int a, int b) { return nombre(a) < nombre(b); });
    for (const int lugar : lugares) nombres << nombre(lugar);
}

Fila Columnas::leer(const Recordset &rs) const {
    Fila fila;
    fila.reserve(lugares.size());
    for (const int lugar : lugares) fila.push_back(ValorDeFila(rs.Fields(lugar).Value));
    return fila;
}

// Lectura

Lectura::Lectura(AppContext &ctx, const QString &interno) : ctx_(ctx), donde_(deLaClaveDe(interno)) {}

void Lectura::Recorrer(const Tabla &tabla, const AlLeer &alLeer) {
    if (*tabla.numerada != '\0')
        numerada(tabla, alLeer);
    else if (*tabla.porPaginas != '\0')
        enPaginas(tabla, alLeer);
    else
        pagina(tabla, "select * from "_L1 + L(tabla.nombre) + donde_, alLeer);
}

/// Their numbers are the order in which they came.
void Lectura::numerada(const Tabla &tabla, const AlLeer &alLeer) {
    std::vector<double> &numeros = numeros_[L(tabla.nombre)];
    numeros.clear();
    const QString cabeza =
        "select top "_L1 + QString::number(filasPorPagina) + " * from "_L1 + L(tabla.nombre) + donde_;
    const QString orden = " order by "_L1 + L(tabla.numerada);
    QString desde;
    while (pagina(tabla, cabeza + desde + orden, alLeer) == static_cast<int>(filasPorPagina))
        desde = " and "_L1 + L(tabla.numerada) + " > "_L1 + numeros::aTexto(numeros.back());
}

/// A page is a range of the column, which has the order of insertion only where the column ascends with it;
/// rows that came otherwise are read at once.
void Lectura::enPaginas(const Tabla &tabla, const AlLeer &alLeer) {
    std::vector<double> valores;
    bool asciende = true;
    {
        Recordset rs;
        for (Consultar(ctx_, L(tabla.entidad),
                       "select "_L1 + L(tabla.porPaginas) + " from "_L1 + L(tabla.nombre) + donde_, rs);
             !rs.Eof(); rs.MoveNext()) {
            const QVariant valor = rs.Fields(0).Value;
            asciende = asciende && !valor.isNull() && (valores.empty() || valores.back() <= EsNumero(valor));
            valores.push_back(EsNumero(valor));
        }
    }
    const QString todas = "select * from "_L1 + L(tabla.nombre) + donde_;
    if (!asciende || valores.size() <= filasPorPagina) {
        if (!valores.empty()) pagina(tabla, todas, alLeer);
        return;
    }
    for (auto desde = valores.begin(); desde != valores.end();) {
        const auto cerca = desde + std::min<std::ptrdiff_t>(filasPorPagina, valores.end() - desde);
        const auto hasta = std::upper_bound(cerca - 1, valores.end(), *(cerca - 1));
        pagina(tabla,
               todas + " and "_L1 + L(tabla.porPaginas) + " >= "_L1 + numeros::aTexto(*desde) + " and "_L1 +
                   L(tabla.porPaginas) + " <= "_L1 + numeros::aTexto(*(hasta - 1)),
               alLeer);
        desde = hasta;
    }
}

int Lectura::pagina(const Tabla &tabla, const QString &sql, const AlLeer &alLeer) {
    Recordset rs;
    Consultar(ctx_, L(tabla.entidad), sql, rs);
    const Columnas columnas(rs, queNoVan(tabla));
    std::vector<std::pair<std::size_t, const Nombra *>> queNombran;
    for (qsizetype c = 0; c < columnas.nombres.size(); ++c)
        if (const Nombra *n = nombraDe(tabla, columnas.nombres.at(c)))
            queNombran.emplace_back(static_cast<std::size_t>(c), n);
    for (; !rs.Eof(); rs.MoveNext()) {
        if (*tabla.numerada != '\0')
            numeros_[L(tabla.nombre)].push_back(rs.Numero(QString(L(tabla.numerada))));
        Fila fila = columnas.leer(rs);
        for (const auto &[c, n] : queNombran)
            if (!fila[c].isNull()) fila[c] = lugarDe(n->tabla, fila[c]);
        if (dejarTomas(tabla, columnas.nombres, fila)) alLeer(columnas.nombres, fila);
    }
    return rs.RecordCount();
}

double Lectura::lugarDe(const char *tabla, const QVariant &numero) const {
    const auto numeros = numeros_.find(L(tabla));
    if (numeros == numeros_.end()) return 0;
    const auto &[nombre, todos] = *numeros;
    const auto lugar = std::lower_bound(todos.begin(), todos.end(), EsNumero(numero));
    return lugar == todos.end() || *lugar != EsNumero(numero)
               ? 0
               : static_cast<double>(lugar - todos.begin() + 1);
}

/// Whether a row of descargas is that of a taking, which stays behind with it; the others came from
/// elsewhere.
bool Lectura::esDeUnaToma(const QVariant &movimiento) {
    if (EsNumero(movimiento) == 0) return false;
    if (!movimientos_) {
        movimientos_.emplace();
        Recordset rs;
        for (Consultar(ctx_, internos, "select id from stockmov"_L1 + donde_, rs); !rs.Eof(); rs.MoveNext())
            movimientos_->insert(EsNumero(rs.Fields(0).Value));
    }
    return movimientos_->contains(EsNumero(movimiento));
}

/// False for a row that stays behind.
bool Lectura::dejarTomas(const Tabla &tabla, const QStringList &columnas, Fila &fila) {
    const L nombre(tabla.nombre);
    const auto valor = [&](const char *columna) -> QVariant & {
        return fila.at(static_cast<std::size_t>(columnas.indexOf(L(columna))));
    };
    if (nombre == "descargas"_L1) return !esDeUnaToma(valor("idexportacion"));
    const bool esLinea = nombre == "subitems"_L1;
    if (esLinea || nombre == "groupsubitems"_L1 || nombre == "item"_L1) {
        if (EsNull(valor("cancelaciones")) != "OK"_L1) return true;
        valor("cancelaciones") = u""_s;
        // A text on the lines, a number where they are gathered.
        valor("insumostemp") = esLinea ? QVariant(u"0"_s) : QVariant(0.0);
        tomo_ = true;
    }
    if (tomo_ && nombre == "caratula"_L1) valor("factura8") = u"S"_s;
    return true;
}

// Destino

Destino::Destino(AppContext &ctx, QString interno, bool juntas)
    : ctx_(ctx), interno_(std::move(interno)), juntas_(juntas) {}

void Destino::Poner(const QString &tabla, const QString &columna, const QString &sql) {
    propios_[tabla + u'.' + columna] = sql;
}

QString Destino::entidadDe(const Tabla &tabla) const {
    QString suya = L(tabla.entidad);
    if (!juntas_ || suya == internos) return suya;
    const Conexion::Datos *datos = ctx_.DataManager.datos(internos);
    const bool alcanza =
        datos != nullptr && std::any_of(datos->vecinos.begin(), datos->vecinos.end(),
                                        [&suya](const auto &vecino) { return vecino.first == suya; });
    return alcanza ? internos : suya;
}

void Destino::Empezar(const Tabla &tabla, const QStringList &columnas) {
    tabla_ = &tabla;
    entidad_ = entidadDe(tabla);
    const QString nombre = L(tabla.nombre);
    Recordset forma;
    Consultar(ctx_, entidad_, "select * from "_L1 + nombre + deLaClaveDe({}), forma);
    const QStringList hay = Columnas(forma, {}).nombres;
    columnas_.clear();
    for (const QString &columna : columnas) {
        const Nombra *n = nombraDe(tabla, columna);
        const auto propio = propios_.find(nombre + u'.' + columna);
        columnas_.push_back({columna.toLatin1(), hay.contains(columna),
                             propio == propios_.end() ? QString() : propio->second,
                             n == nullptr ? QString() : QString(L(n->tabla))});
    }
}

QString Destino::sqlDe(int columna, const QVariant &valor) const {
    const ColumnaEscrita &c = columnas_.at(static_cast<std::size_t>(columna));
    if (!c.propio.isEmpty()) return c.propio;
    if (valor.isNull()) return u"NULL"_s;
    if (!c.nombra.isEmpty()) {
        const auto numeros = numeros_.find(c.nombra);
        const auto lugar = static_cast<std::size_t>(std::max(0.0, EsNumero(valor)));
        if (numeros == numeros_.end() || lugar == 0 || lugar > numeros->second.size()) return u"0"_s;
        return QString::number(numeros->second.at(lugar - 1));
    }
    if (valor.typeId() == QMetaType::QString) return TextoEnComillas(valor.toString());
    return AStoreNumero(numeros::aTexto(valor.toDouble()),
                        ctx_.DataManager.getDecimalSeparatorbyEntity(entidad_));
}

void Destino::Agregar(const Fila &fila) {
    Escritura escritura(ctx_, entidad_);
    escritura.crudo("interno", EnComillas(interno_));
    for (std::size_t c = 0; c < columnas_.size(); ++c) {
        if (columnas_[c].esta) {
            escritura.crudo(columnas_[c].nombre.constData(), sqlDe(static_cast<int>(c), fila.at(c)));
            continue;
        }
        const QString cual = QString(L(tabla_->nombre)) + u'.' + L(columnas_[c].nombre);
        if (!fila.at(c).isNull() && !sobrantes_.contains(cual)) sobrantes_ << cual;
    }
    enEspera_ << escritura.insertar(L(tabla_->nombre));
    largoEnEspera_ += enEspera_.last().size();
    if (enEspera_.size() >= sentenciasJuntas || largoEnEspera_ >= largoJuntas) mandar();
}

void Destino::mandar() {
    if (!enEspera_.isEmpty()) ctx_.conexion(entidad_).EjecutarSeguidas(enEspera_);
    enEspera_.clear();
    largoEnEspera_ = 0;
}

void Destino::Terminar() {
    if (tabla_ == nullptr) return;
    mandar();
    const Tabla &tabla = *std::exchange(tabla_, nullptr);
    if (*tabla.numerada == '\0') return;
    // The store numbers them as they come.
    std::vector<qint64> &numeros = numeros_[L(tabla.nombre)];
    Recordset rs;
    for (Consultar(ctx_, entidad_,
                   "select "_L1 + L(tabla.numerada) + " from "_L1 + L(tabla.nombre) + deLaClaveDe(interno_) +
                       " order by "_L1 + L(tabla.numerada),
                   rs);
         !rs.Eof(); rs.MoveNext())
        numeros.push_back(static_cast<qint64>(EsNumero(rs.Fields(0).Value)));
}

void Destino::Limpiar() {
    for (const Tabla &tabla : Tablas())
        Ejecutar(ctx_, entidadDe(tabla), "delete from "_L1 + L(tabla.nombre) + deLaClaveDe(interno_));
}

}  // namespace operacion
