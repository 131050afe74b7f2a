#include "tests/assembly/corrida.h"

using namespace Qt::StringLiterals;

void ConCorridas::SetUp() {
    Armado::SetUp();
    for (const char *codigo : {"IC04", "IC81", "ICR3", "IT01", "IG04", "DJAI", "LAPI", "TLR1", "ZFE1"})
        subregimen(QLatin1StringView(codigo), u"I"_s);
    for (const char *codigo : {"EC01", "EC03", "ET01"}) subregimen(QLatin1StringView(codigo), u"E"_s);
    insertar(u"clientes"_s, {{u"cuit"_s, u"'30'"_s}, {u"cvdi"_s, u"'S'"_s}}, u"PERSONAL"_s);
    for (const char *concepto : {"010", "011", "415", "500", "501"})
        insertar(u"tax"_s, {{u"ctax"_s, '\''_L1 + QLatin1StringView(concepto) + '\''_L1},
                            {u"ltaxabr"_s, u"'CONCEPTO'"_s},
                            {u"ctaxpog"_s, u"'P'"_s},
                            {u"porcentaje"_s, u"1"_s}});
}

void ConCorridas::subregimen(const QString &codigo, const QString &direccion) {
    insertar(u"sta"_s,
             {{u"id"_s, '\''_L1 + codigo + '\''_L1}, {u"cstaimpexp"_s, '\''_L1 + direccion + '\''_L1}},
             u"SYSTABLAS"_s);
}

void ConCorridas::operacion(const Fila &cambios, const QString &interno) {
    caratula(cambios, interno);
    for (int n = 0; n < 10; ++n) linea({{u"idpais"_s, n % 2 == 0 ? u"'203'"_s : u"'310'"_s}}, interno);
}

QStringList ConCorridas::marcas() const {
    QStringList lista;
    for (const Avance &a : registro.avances) {
        if (a.tipo == Avance::Tipo::PasoCorriendo) lista << "> "_L1 + a.texto;
        if (a.tipo == Avance::Tipo::PasoHecho) lista << "# "_L1 + a.texto;
    }
    return lista;
}

QString ConCorridas::derivados(const QString &interno) {
    QStringList todo;
    for (const char *tabla :
         {"groupsubitems", "idrel", "item", "itemliq", "itemventaja", "iteminfo", "sysflag"})
        todo << filas("select * from "_L1 + QLatin1StringView(tabla) + " where interno = '"_L1 + interno +
                      '\''_L1);
    return todo.join("\n--\n"_L1);
}

QString ConCorridas::armada(const QString &interno) {
    return valor("select factura8 from caratula where interno = '"_L1 + interno + '\''_L1);
}
