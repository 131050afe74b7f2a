#include "operations/exchangerelated.h"

#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/escritura.h"

using namespace Qt::StringLiterals;

namespace intercambio {

namespace {

using L = QLatin1String;

constexpr qsizetype preguntasJuntas = 100;

/// The column of the header that names a party, by the party's table.
struct ParteDeCaratula {
    const char *tabla;
    const char *columna;
};
constexpr ParteDeCaratula partesDeCaratula[] = {{"clientes", "cuitcliente"},
                                                {"ventajasrel", "cuitcliente"},
                                                {"despadu", "cuitdespaduana"},
                                                {"vendedor", "idvendedor"},
                                                {"transporte", "cuittrans"}};

/// The keys of the rows that an operation needs of a table: one key a list.
std::vector<QStringList> clavesDe(AppContext &ctx, const QString &interno, const TablaRelacionada &tabla) {
    const QString donde = " where interno = "_L1 + EnComillas(interno);
    std::vector<QStringList> claves;
    Recordset rs;
    for (const ParteDeCaratula &parte : partesDeCaratula) {
        if (L(parte.tabla) != L(tabla.nombre)) continue;
        if (Consultar(ctx, entidad::internos, "select "_L1 + L(parte.columna) + " from caratula"_L1 + donde,
                      rs))
            claves.push_back({EsNull(rs.Fields(0).Value)});
        std::erase_if(claves, [](const QStringList &clave) { return clave.front().trimmed().isEmpty(); });
        return claves;
    }
    for (Consultar(
             ctx, entidad::internos,
             "select idcatalogo,idarticulo from subitems"_L1 + donde + " group by idcatalogo,idarticulo"_L1,
             rs);
         !rs.Eof(); rs.MoveNext())
        if (!EsNull(rs.Fields(1).Value).isEmpty())
            claves.push_back({EsNull(rs.Fields(0).Value), EsNull(rs.Fields(1).Value)});
    return claves;
}

QString condicionDe(const TablaRelacionada &tabla, const QStringList &clave) {
    QStringList partes;
    for (qsizetype c = 0; c < clave.size(); ++c)
        partes << L(tabla.clave.at(static_cast<std::size_t>(c))) + " = "_L1 + TextoEnComillas(clave.at(c));
    return " where "_L1 + partes.join(" and "_L1);
}

/// Keys are the same whatever their case, as the stores compare them.
QString plegada(const QStringList &clave) {
    return clave.join(QChar(1)).toCaseFolded();
}

}  // namespace

const std::vector<TablaRelacionada> &TablasRelacionadas() {
    static const std::vector<TablaRelacionada> todas{
        {"PERSONAL", "clientes", {"cuit"}},
        {"PERSONAL", "ventajasrel", {"cuit"}, "clientes"},
        {"PERSONAL", "despadu", {"cuit"}},
        {"PERSONAL", "vendedor", {"codigo"}},
        {"PERSONAL", "transporte", {"cuit"}},
        {"CATALOGOS", "catarticulos", {"idcatalogo", "idarticulo"}},
        {"CATALOGOS", "articulo_ventaja", {"idcatalogo", "idarticulo"}, "catarticulos"},
    };
    return todas;
}

const TablaRelacionada *BuscarTablaRelacionada(const QString &nombre) {
    const auto &todas = TablasRelacionadas();
    const auto t = std::find_if(todas.begin(), todas.end(),
                                [&nombre](const TablaRelacionada &una) { return nombre == L(una.nombre); });
    return t == todas.end() ? nullptr : &*t;
}

void RecorrerRelacionadas(AppContext &ctx, const QString &interno, const TablaRelacionada &tabla,
                          const operacion::AlLeer &alLeer) {
    std::vector<QStringList> claves = clavesDe(ctx, interno, tabla);
    std::sort(claves.begin(), claves.end(),
              [](const QStringList &a, const QStringList &b) { return plegada(a) < plegada(b); });
    // One store or another may tell two spellings of a key apart where it makes groups.
    claves.erase(
        std::unique(claves.begin(), claves.end(),
                    [](const QStringList &a, const QStringList &b) { return plegada(a) == plegada(b); }),
        claves.end());
    const QString cabeza = "select * from "_L1 + L(tabla.nombre);
    QStringList preguntas;
    const auto preguntar = [&] {
        for (Recordset &rs : ConsultarSeguidas(ctx, L(tabla.entidad), preguntas)) {
            const operacion::Columnas columnas(rs, {});
            for (; !rs.Eof(); rs.MoveNext()) alLeer(columnas.nombres, columnas.leer(rs));
        }
        preguntas.clear();
    };
    for (const QStringList &clave : claves) {
        preguntas << cabeza + condicionDe(tabla, clave);
        if (preguntas.size() == preguntasJuntas) preguntar();
    }
    if (!preguntas.isEmpty()) preguntar();
}

// DestinoDeRelacionadas

void DestinoDeRelacionadas::Empezar(const TablaRelacionada &tabla, const QStringList &columnas) {
    tabla_ = &tabla;
    columnas_ = columnas;
    vistas_.clear();
    for (const char *clave : tabla.clave)
        if (!columnas.contains(L(clave)))
            throw Falla{
                0, L(tabla.entidad), u"Falta la columna %1 de %2."_s.arg(L(clave), L(tabla.nombre)), {}};
    Recordset forma;
    Consultar(ctx_, L(tabla.entidad),
              "select * from "_L1 + L(tabla.nombre) + " where "_L1 + L(tabla.clave.front()) + " = ''"_L1,
              forma);
    enElStore_ = operacion::Columnas(forma, {}).nombres;
    transaccion_.emplace(ctx_.conexion(L(tabla.entidad)));
}

/// Whether the rows of a key are to be added: asked once, ahead of the first of them.
bool DestinoDeRelacionadas::falta(const QStringList &clave) {
    const QString nombre = plegada(clave);
    const QString suya = QString(L(tabla_->nombre)) + u'|' + nombre;
    if (*tabla_->acompana != '\0') return nuevas_.contains(QString(L(tabla_->acompana)) + u'|' + nombre);
    if (!vistas_.contains(nombre)) {
        vistas_.insert(nombre);
        Recordset rs;
        if (!Consultar(ctx_, L(tabla_->entidad),
                       "select top 1 * from "_L1 + L(tabla_->nombre) + condicionDe(*tabla_, clave), rs))
            nuevas_.insert(suya);
    }
    return nuevas_.contains(suya);
}

void DestinoDeRelacionadas::Agregar(const operacion::Fila &fila) {
    QStringList clave;
    for (const char *columna : tabla_->clave)
        clave << EsNull(fila.at(static_cast<std::size_t>(columnas_.indexOf(L(columna)))));
    if (!falta(clave)) return;
    Escritura escritura(ctx_, L(tabla_->entidad));
    for (qsizetype c = 0; c < columnas_.size(); ++c) {
        if (!enElStore_.contains(columnas_.at(c))) continue;
        const QVariant &valor = fila.at(static_cast<std::size_t>(c));
        const QByteArray columna = columnas_.at(c).toLatin1();
        if (valor.isNull())
            escritura.crudo(columna.constData(), u"NULL"_s);
        else if (valor.typeId() == QMetaType::QString)
            escritura.texto(columna.constData(), valor.toString());
        else
            escritura.numero(columna.constData(), valor.toDouble());
    }
    Ejecutar(ctx_, L(tabla_->entidad), escritura.insertar(L(tabla_->nombre)));
    ++agregadas_;
}

void DestinoDeRelacionadas::Terminar() {
    if (tabla_ == nullptr) return;
    tabla_ = nullptr;
    transaccion_->Confirmar();
    transaccion_.reset();
}

}  // namespace intercambio
