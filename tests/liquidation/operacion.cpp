#include "tests/liquidation/operacion.h"

using namespace Qt::StringLiterals;

namespace {

Fila mezclar(Fila base, const Fila &cambios) {
    for (auto it = cambios.begin(); it != cambios.end(); ++it) base[it.key()] = it.value();
    return base;
}

QString entreComillas(const QString &texto) {
    return QLatin1Char('\'') + texto + QLatin1Char('\'');
}

}  // namespace

void OperacionDePrueba::SetUp() {
    EnAmbosStores::SetUp();
    ctx->opciones.IVARIN = 21;
    ctx->opciones.IVARNI = 10.5;
    insertar(u"caratula"_s, {{"interno", "'OP1'"},
                             {"idsubreg", "'IC01'"},
                             {"fobdivcambio", "1"},
                             {"fletedivcambio", "1"},
                             {"segurodivcambio", "1"}});
    posicion("7318.15.00.100A");
}

void OperacionDePrueba::TearDown() {
    Conexion::fijarTraza({});
    calculo.reset();
    EnAmbosStores::TearDown();
}

void OperacionDePrueba::insertar(const QString &tabla, const Fila &fila, const QString &entidad) {
    ejecutar(u"insert into "_s + tabla + u" ("_s + QStringList(fila.keys()).join(QLatin1Char(',')) +
                 u") values ("_s + QStringList(fila.values()).join(QLatin1Char(',')) + u")"_s,
             entidad);
}

void OperacionDePrueba::posicion(const char *ncm, const Fila &cambios) {
    const QString p = QString::fromLatin1(ncm);
    insertar(u"ncm"_s,
             mezclar({{"[001]", entreComillas(p.left(10))},
                      {"[002]", entreComillas(p.mid(11, 3))},
                      {"[003]", entreComillas(p.mid(14))},
                      {"[015]", "'20'"},
                      {"[016]", "'3'"},
                      {"[017]", "'0'"},
                      {"[018]", "'10'"},
                      {"[019]", "'5'"},
                      {"[020]", "''"},
                      {"[023]", "'2'"},
                      {"[026]", "'18'"},
                      {"[028]", "''"},
                      {"[048]", "'2'"},
                      {"[053]", "'1'"},
                      {"[059]", "''"}},
                     cambios),
             u"NCM"_s);
}

void OperacionDePrueba::caratula(const Fila &cambios) {
    QStringList partes;
    for (auto it = cambios.begin(); it != cambios.end(); ++it) partes << it.key() + u" = "_s + it.value();
    ejecutar(u"update caratula set "_s + partes.join(QLatin1Char(',')) + u" where interno = 'OP1'"_s);
}

void OperacionDePrueba::item(int id, const Fila &cambios) {
    Fila fila{{"interno", "'OP1'"}, {"id", QString::number(id)}};
    if (id != 0)
        fila.insert({{"ncm", "'7318.15.00.100A'"},
                     {"idpais", "'400'"},
                     {"fobtotal", "1000"},
                     {"itflete", "100"},
                     {"itseguro", "10"},
                     {"lista", "''"},
                     {"tipoitem", "'N'"}});
    insertar(u"item"_s, mezclar(fila, cambios));
}

void OperacionDePrueba::fila(int id, const char *concepto, const Fila &cambios) {
    insertar(u"itemliq"_s, mezclar({{"interno", "'OP1'"},
                                    {"iditem", QString::number(id)},
                                    {"idconceptos", entreComillas(QString::fromLatin1(concepto))},
                                    {"pgc", "'P'"},
                                    {"motivo", "''"},
                                    {"valor", "0"}},
                                   cambios));
}

void OperacionDePrueba::filas(int id, std::initializer_list<const char *> conceptos) {
    for (const char *concepto : conceptos) fila(id, concepto);
}

void OperacionDePrueba::catalogo() {
    for (const auto &[codigo, nombre] :
         {std::pair{"010", "DERECHOS"}, std::pair{"011", "ESTADISTICA"}, std::pair{"415", "IVA"},
          std::pair{"424", "GANANCIAS"}, std::pair{"500", "ARANCEL DEL CATALOGO"}})
        insertar(u"tax"_s, {{"ctax", entreComillas(QString::fromLatin1(codigo))},
                            {"ltaxabr", entreComillas(QString::fromLatin1(nombre))},
                            {"ctaxpog", "'P'"}});
}

ResultadoRecalculo OperacionDePrueba::recalcular(bool pendiente) {
    ctx->LiquidacionPendiente = pendiente;
    calculo = std::make_unique<ClassLiquidacion>(*ctx, QString::fromLatin1(clave));
    estados.clear();
    return RecalcularOperacion(*ctx, QString::fromLatin1(clave), *calculo,
                               [this](const QString &texto) { estados << texto; });
}

std::string OperacionDePrueba::liq(int id) {
    return filas(
               u"select idconceptos,porcentaje,baseimp,total,pgc "
               "from itemliq "
               "where interno = 'OP1' and iditem = %1 "
               "order by idconceptos"_s.arg(id))
        .toStdString();
}

std::string OperacionDePrueba::totales() {
    return f("select idconcepto,concepto,valor,pgc from liqcero where interno = 'OP1'");
}
