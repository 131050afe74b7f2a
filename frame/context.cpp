#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

AppContext *&actual() {
    static AppContext *contexto = nullptr;
    return contexto;
}

}  // namespace

bool MotivoDecreto::alguno() const {
    const QLatin1String si("S");
    return d1439_96 == si || d1439_96A1 == si || d1330_04A6 == si || d1330_04A7 == si || d1330_04A8 == si;
}

AppContext &Contexto() {
    if (actual() == nullptr)
        throw Falla{
            0,
            u"AppContext"_s,
            u"El programa no tiene su contexto de trabajo en este momento; ciérrelo y vuelva a iniciarlo."_s,
            {}};
    return *actual();
}

void fijarContexto(AppContext *contexto) {
    actual() = contexto;
}

bool Consultar(AppContext &ctx, const QString &entidad, const QString &sql, Recordset &rs) {
    Conexion &conexion = ctx.conexion(entidad);
    conexion.Sql = sql;
    return conexion.crearrs(rs);
}

std::vector<Recordset> ConsultarSeguidas(AppContext &ctx, const QString &entidad,
                                         const QStringList &sentencias) {
    return ctx.conexion(entidad).ConsultarSeguidas(sentencias);
}

qint64 Ejecutar(AppContext &ctx, const QString &entidad, const QString &sql) {
    Conexion &conexion = ctx.conexion(entidad);
    conexion.Sql = sql;
    return conexion.Ejecutar();
}

void Mandar(AppContext &ctx, const QString &entidad, const QString &sql) {
    Conexion &conexion = ctx.conexion(entidad);
    conexion.Sql = sql;
    conexion.Mandar();
}
