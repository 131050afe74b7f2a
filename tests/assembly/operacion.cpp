#include "tests/assembly/operacion.h"

#include "subitems/nomenclature.h"

using namespace Qt::StringLiterals;

namespace {

Fila con(Fila fila, const Fila &cambios) {
    for (const auto &[columna, valor] : cambios) fila[columna] = valor;
    return fila;
}

QString literal(const QString &texto) {
    return '\''_L1 + texto + '\''_L1;
}

}  // namespace

void Armado::SetUp() {
    EnAmbosStores::SetUp();
    posicion(posicionSinSufijos);
}

void Armado::insertar(const QString &tabla, const Fila &fila, const QString &entidad) {
    QStringList columnas;
    QStringList valores;
    for (const auto &[columna, valorDeColumna] : fila) {
        columnas << columna;
        valores << valorDeColumna;
    }
    ejecutar("insert into "_L1 + tabla + " ("_L1 + columnas.join(','_L1) + ") values ("_L1 +
                 valores.join(','_L1) + ')'_L1,
             entidad);
}

void Armado::caratula(const Fila &cambios, const QString &interno) {
    insertar(u"caratula"_s, con({{u"interno"_s, literal(interno)},
                                 {u"idsubreg"_s, u"'IC04'"_s},
                                 {u"cuitcliente"_s, u"'30'"_s},
                                 {u"fobdivisas"_s, u"100"_s},
                                 {u"fletedivisas"_s, u"0"_s},
                                 {u"segurodivisas"_s, u"0"_s},
                                 {u"valoraprorratear"_s, u"0"_s},
                                 {u"factura8"_s, u"'S'"_s}},
                                cambios));
}

void Armado::linea(const Fila &cambios, const QString &interno) {
    insertar(u"subitems"_s, con({{u"interno"_s, literal(interno)},
                                 {u"idcatalogo"_s, u"'CAT'"_s},
                                 {u"idarticulo"_s, u"'ART'"_s},
                                 {u"otros"_s, u"'OTRO'"_s},
                                 {u"ncm"_s, literal(posicionSinSufijos)},
                                 {u"descripcion"_s, u"'PIEZA'"_s},
                                 {u"descripcion_maria"_s, u"'PIEZA MARIA'"_s},
                                 {u"idunidad"_s, u"'07'"_s},
                                 {u"cantidad"_s, u"1"_s},
                                 {u"preciounitario"_s, u"10"_s},
                                 {u"fob"_s, u"10"_s},
                                 {u"estadistica"_s, u"'07'"_s},
                                 {u"valorrelacionestadistica"_s, u"1"_s},
                                 {u"deresp"_s, u"''"_s},
                                 {u"valorderesp"_s, u"0"_s},
                                 {u"idpais"_s, u"'203'"_s},
                                 {u"idpaisproc"_s, u"'203'"_s},
                                 {u"estadomerc"_s, u"'1'"_s},
                                 {u"sufijos"_s, u"''"_s},
                                 {u"biendeuso"_s, u"'N'"_s},
                                 {u"tipoitem"_s, u"'N'"_s},
                                 {u"kgneto"_s, u"0"_s},
                                 {u"kgbruto"_s, u"0"_s}},
                                cambios));
}

void Armado::posicion(const QString &texto, const Fila &columnas) {
    const ClavesNcm claves = CortarPosicion(texto);
    Fila fila{{u"[001]"_s, literal(claves.c001)},
              {u"[002]"_s, literal(claves.c002)},
              {u"[003]"_s, literal(claves.c003)}};
    for (const auto &[columna, valorDeColumna] : columnas) fila['['_L1 + columna + ']'_L1] = valorDeColumna;
    insertar(u"ncm"_s, fila, u"NCM"_s);
}

void Armado::sufijo(const QString &sim, const QString &codigo) {
    insertar(u"sufidos"_s,
             {{u"sim"_s, literal(sim)}, {u"sufijo"_s, literal(codigo)}, {u"detalle"_s, u"'DETALLE'"_s}},
             u"NCM"_s);
}

ContextoArmado Armado::corrida(const OpcionesDeArmado &opciones, const QString &interno) {
    ContextoArmado r{*ctx, interno};
    r.opciones = opciones;
    r.go_InputsLink = insumos::Enlazar();
    LeerCaratula(r);
    ctx->ChequeoArmado = u"SI"_s;
    return r;
}

bool Armado::generar(const OpcionesDeArmado &opciones, const QString &interno) {
    ctx->ChequeoArmado = u"SI"_s;
    return Generar(*ctx, interno, opciones);
}

void Armado::agrupar(ContextoArmado &r) {
    NormalizarLineas(r);
    AgruparLineas(r);
}

std::vector<qint64> Armado::ids(const QString &interno) {
    Recordset rs;
    Consultar(*ctx, u"INTERNOS"_s,
              "select id from subitems where interno = "_L1 + literal(interno) + " order by id"_L1, rs);
    std::vector<qint64> lista;
    for (; !rs.Eof(); rs.MoveNext()) lista.push_back(rs.Fields(u"id").Value.toLongLong());
    return lista;
}
