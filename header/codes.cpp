#include "header/codes.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/escritura.h"
#include "frame/failures.h"
#include "header/ListadoCodigos.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

/// A key with its table and the entity each service reads; null where the service does not offer it. The
/// services disagree on purpose: an entity's connection sees the others' tables.
struct Tabla {
    const char *clave;
    const char *tabla;
    const char *entidadDescripcion;
    const char *entidadId;
};
constexpr Tabla tablas[] = {
    {"SUBREG", "STA", "SYSTABLAS", "INTERNOS"},
    {"ADUANA", "ADUANA", "SYSTABLAS", "INTERNOS"},
    {"TIPOEMB", "TIPOEMB", "INTERNOS", "INTERNOS"},
    {"CODEMB", "CODEMB", "INTERNOS", "INTERNOS"},
    {"VIA", "via", "INTERNOS", "INTERNOS"},
    {"CODVENTA", "CONDICIONDEVENTA", "SYSTABLAS", "SYSTABLAS"},
    {"DIVISAS", "DIVISAS", "INTERNOS", "INTERNOS"},
    {"PAIS", "PAIS", "SYSTABLAS", "SYSTABLAS"},
    {"MOTIVO", "MOTIVO", "SYSTABLAS", "SYSTABLAS"},
    {"PUERTO", "PUERTOS", "INTERNOS", "INTERNOS"},
    {"ESTADOMERCADERIA", "ESTADOMERCADERIA", "INTERNOS", "INTERNOS"},
    {"UNIDADES", "UNIDADES", "INTERNOS", "INTERNOS"},
    {"BANCOS", "BANCOS", nullptr, "SYSTABLAS"},
    {"ONCCA_ACUERDO", "ONCCA_ACUERDO", "SYSTABLAS", "SYSTABLAS"},
    {"ONCCA_CATEGORIA", "ONCCA_CATEGORIA", "SYSTABLAS", "SYSTABLAS"},
    {"ONCCA_CORTES", "ONCCA_CORTES", "SYSTABLAS", "SYSTABLAS"},
    {"ONCCA_ELABORADOR", "ONCCA_ELABORADOR", "SYSTABLAS", "SYSTABLAS"},
    {"ONCCA_ESPECIE", "ONCCA_ESPECIE", "SYSTABLAS", "SYSTABLAS"},
    {"ONCCA_FANEADOR", "ONCCA_FANEADOR", "SYSTABLAS", "SYSTABLAS"},
    {"ONCCA_MECOORGBIO", "ONCCA_MECOORGBIO", "SYSTABLAS", "SYSTABLAS"},
    {"ONCCA_RES3106", "ONCCA_RES3106", "SYSTABLAS", "SYSTABLAS"},
    {"ONCCA_SISPRO", "ONCCA_SISPRO", "SYSTABLAS", "SYSTABLAS"},
};

/// What the two services differ in.
struct Servicio {
    const char *columna;
    const char *marca;
    const char *Tabla::*entidad;
};
constexpr Servicio descripcion{"descripcion", "BUSCARDESCRIPCION", &Tabla::entidadDescripcion};
constexpr Servicio identidad{"id", "BuscarId", &Tabla::entidadId};

QString sentencia(const Tabla &t, const Servicio &s, const QString &codigo) {
    if (L(t.tabla) == "PUERTOS"_L1)
        return "SELECT LPOR as descripcion FROM PUERTOS where cpor = "_L1 + EnComillas(codigo);
    return "select "_L1 + L(s.columna) + " from "_L1 + L(t.tabla) + " where id ="_L1 + EnComillas(codigo);
}

void completarAux(AppContext &ctx, const QString &clave, const QString &codigo, QString &aux) {
    Recordset rs;
    if (clave == "SUBREG"_L1 &&
        Consultar(ctx, u"SYSTABLAS"_s, "select cstaimpexp from sta where id = "_L1 + EnComillas(codigo), rs))
        aux = rs.Texto(u"cstaimpexp");
    if (aux == "Div"_L1 &&
        Consultar(ctx, u"INTERNOS"_s, "select * from divisas where id = "_L1 + EnComillas(codigo), rs))
        aux = numeros::Format(rs.Numero(u"imp"), u"00.000000", ctx.SeparadorDecimal);
}

const Tabla *tablaDe(const QString &clave) {
    const auto *const una = std::find_if(std::begin(tablas), std::end(tablas),
                                         [&clave](const Tabla &t) { return clave == L(t.clave); });
    return una == std::end(tablas) ? nullptr : una;
}

/// A look-up that fails answers nothing, without a word; that there is no store to look in is no answer.
void contarSiSeFue(AppContext &ctx, const Falla &e) {
    if (e.numero == Falla::sinStore) ContarFalla(ctx, e);
}

QString buscar(AppContext &ctx, const Servicio &s, const QString &clave, const QString &codigo, QString &aux,
               int silencio) {
    if (clave.isEmpty() || codigo.isEmpty()) return {};
    const Reloj reloj(ctx.dialogos);
    const Tabla *tabla = tablaDe(clave);
    if (tabla == nullptr || tabla->*s.entidad == nullptr) return {};
    if (clave == "DIVISAS"_L1) aux = u"Div"_s;
    try {
        Recordset rs;
        if (!Consultar(ctx, L(tabla->*s.entidad), sentencia(*tabla, s, codigo), rs)) {
            if (silencio != 1)
                ctx.dialogos.advertir(
                    "CODIGO INEXISTENTE DE "_L1 + clave +
                        u"\r\n\r\nNo se enconto DESCRIPCIÓN para esta CLAVE\r\n\r\n[CARATULA."_s +
                        L(s.marca) + QLatin1Char('.') + clave + QLatin1Char(']'),
                    "Buscar "_L1 + clave);
            if (aux == "Div"_L1) aux.clear();
            return {};
        }
        // The ports' statement brings no id: asking for it fails, and a failed look-up answers nothing.
        QString encontrado = rs.Texto(QString(L(s.columna)));
        completarAux(ctx, clave, codigo, aux);
        return encontrado;
    } catch (const Falla &e) {
        contarSiSeFue(ctx, e);
        return {};
    }
}

/// The row that the user picked; nothing when he left, for a key without a list, and on a store error.
std::optional<FilaDeCodigo> elegirFila(AppContext &ctx, const QString &clave) {
    if (!ListadoCodigosClass::Ofrece(clave)) return {};
    ListaDeCodigos lista;
    try {
        const Reloj reloj(ctx.dialogos);
        lista = ListadoCodigosClass(ctx).Listado(clave);
    } catch (const Falla &e) {
        contarSiSeFue(ctx, e);
        return {};
    }
    const int cual = ctx.dialogos.elegir({lista.titulo, lista.vistas(), -1, Eleccion::Tipo::Codigos});
    if (cual < 0 || cual >= static_cast<int>(lista.filas.size())) return {};
    FilaDeCodigo fila = lista.filas.at(static_cast<std::size_t>(cual));
    if (fila.devuelto.trimmed().isEmpty()) return {};
    return fila;
}

/// What the answer's rule says of `aux`.
void auxDeFila(AppContext &ctx, const QString &clave, const FilaDeCodigo &fila, QString &aux) {
    constexpr int dondeEmpiezaElNombreDelPuerto = 6;
    if (clave == "PUERTO"_L1) {
        aux = fila.devuelto.mid(dondeEmpiezaElNombreDelPuerto).trimmed();
        return;
    }
    try {
        completarAux(ctx, clave, fila.codigo, aux);
    } catch (const Falla &) {
        aux.clear();
    }
}

QString enSilencio(AppContext &ctx, const char *clave, const QString &codigo) {
    QString aux;
    return BuscarDescripcion(ctx, L(clave), codigo, aux, 1);
}

}  // namespace

QString BuscarDescripcion(AppContext &ctx, const QString &clave, const QString &codigo, QString &aux,
                          int silencio) {
    return buscar(ctx, descripcion, clave, codigo, aux, silencio);
}

QString BuscarId(AppContext &ctx, const QString &clave, const QString &codigo, QString &aux, int silencio) {
    return buscar(ctx, identidad, clave, codigo, aux, silencio);
}

QString Listar(AppContext &ctx, const QString &clave, QString &codigo, QString &aux) {
    const auto fila = elegirFila(ctx, clave);
    if (!fila) return {};
    codigo = fila->codigo;
    auxDeFila(ctx, clave, *fila, aux);
    return fila->vista;
}

bool ElegirCodigo(AppContext &ctx, const QString &clave, CampoDeCodigo &campo) {
    const auto fila = elegirFila(ctx, clave);
    if (!fila || fila->codigo.isEmpty()) return false;
    campo.codigo = fila->codigo.toUpper();
    campo.descripcion = fila->descripcion.trimmed();
    auxDeFila(ctx, clave, *fila, campo.aux);
    return true;
}

bool ConfirmarCodigo(AppContext &ctx, const QString &clave, CampoDeCodigo &campo, ServicioDeCodigo servicio,
                     int silencio) {
    if (campo.codigo.isEmpty()) {
        campo.descripcion.clear();
        return true;
    }
    campo.codigo = campo.codigo.toUpper();
    if (servicio == ServicioDeCodigo::Descripcion) {
        campo.descripcion = BuscarDescripcion(ctx, clave, campo.codigo, campo.aux, silencio);
        return !campo.descripcion.isEmpty();
    }
    const QString guardado = BuscarId(ctx, clave, campo.codigo, campo.aux, silencio);
    campo.descripcion.clear();
    if (guardado.isEmpty()) return false;
    campo.codigo = guardado.toUpper();
    return true;
}

QString RellenarCodigo(const QString &codigo) {
    constexpr int ancho = 3;
    const bool cifras = !codigo.isEmpty() && std::all_of(codigo.begin(), codigo.end(),
                                                         [](QChar c) { return c >= u'0' && c <= u'9'; });
    return cifras ? codigo.rightJustified(ancho, QLatin1Char('0')) : codigo;
}

bool CampoRellenaCeros(QStringView control) {
    static constexpr std::array<const char *, 4> campos{"TxtCoddivfob", "TxtCodDivFlete", "TxtCodDivseguro",
                                                        "txtDCBancos"};
    return std::any_of(campos.begin(), campos.end(), [control](const char *campo) {
        return control.compare(L(campo), Qt::CaseInsensitive) == 0;
    });
}

QString ClaveDeEtiqueta(const QString &etiqueta) {
    const L marca("LL-");
    if (!etiqueta.startsWith(marca)) return {};
    return etiqueta.mid(marca.size()).section(QLatin1Char('#'), 0, 0);
}

QString ControlDivisa(AppContext &ctx, const QString &divisa, const QString &valor) {
    if (divisa.isEmpty()) return valor;
    const QString internos = u"INTERNOS"_s;
    Recordset rs;
    if (!Consultar(ctx, internos, "select [imp] from divisas where id = "_L1 + EnComillas(divisa), rs)) {
        ctx.dialogos.advertir(u"No se encontro codigo de DIVISAS en base."_s);
        return valor;
    }
    const QString guardado = numeros::Format(rs.Numero(u"imp"), u"0.000000", ctx.SeparadorDecimal);
    const QString ingresado = numeros::Format(valor, u"0.000000", ctx.SeparadorDecimal);
    if (guardado == ingresado) return valor;
    if (!ctx.dialogos.preguntar(
            {"El valor ingresado por usted es "_L1 + ingresado +
                 " este valor no corresponde al que tiene guardado en la tabla de Divisas que es "_L1 +
                 guardado + ", desea guardar el nuevo valor como predeterminado."_L1,
             {},
             Icono::Pregunta,
             false}))
        return valor;
    const qint64 cambiadas = Ejecutar(
        ctx, internos,
        Escritura(ctx).numero("imp", valor).actualizar(u"divisas"_s, "id = "_L1 + EnComillas(divisa)));
    if (cambiadas > 0)
        ctx.dialogos.informar(u"Valor Guardado Correctamente."_s);
    else
        ctx.dialogos.advertir(u"No se puede guardar valor"_s);
    return valor;
}

QString getAduanaDescripcion(AppContext &ctx, const QString &codigo) {
    return enSilencio(ctx, "ADUANA", codigo);
}
QString getPaisDescripcion(AppContext &ctx, const QString &codigo) {
    return enSilencio(ctx, "PAIS", codigo);
}
QString getEstadoMercaderiaDescripcion(AppContext &ctx, const QString &codigo) {
    return enSilencio(ctx, "ESTADOMERCADERIA", codigo);
}
QString getUnidadDescripcion(AppContext &ctx, const QString &codigo) {
    return enSilencio(ctx, "UNIDADES", codigo);
}
QString getSubRegimen(AppContext &ctx, const QString &codigo) {
    return enSilencio(ctx, "SUBREG", codigo);
}

QString SentenciaDeDescripcion(const QString &clave, const QString &codigo) {
    const Tabla *tabla = tablaDe(clave);
    return tabla == nullptr || tabla->entidadDescripcion == nullptr ? QString()
                                                                    : sentencia(*tabla, descripcion, codigo);
}

DescripcionesAnticipadas::DescripcionesAnticipadas(AppContext &ctx,
                                                   const std::vector<std::pair<QString, QString>> &pedidos) {
    std::map<QString, QStringList> porEntidad;
    for (const auto &[clave, codigo] : pedidos) {
        const QString sentencia = SentenciaDeDescripcion(clave, codigo);
        if (!codigo.isEmpty() && !sentencia.isEmpty())
            porEntidad[L(tablaDe(clave)->entidadDescripcion)] << sentencia;
    }
    try {
        for (const auto &[entidad, sentencias] : porEntidad) {
            // One alone goes by itself.
            if (sentencias.size() < 2) continue;
            lecturas_.push_back(
                std::make_unique<LecturaAdelantada>(ctx.conexion(entidad), std::vector{sentencias}));
            lecturas_.back()->Vuelta();
        }
    } catch (const Falla &) {
        lecturas_.clear();
    }
}
