#include "subitems/suffixes.h"

#include "subitems/SuffixChecker.h"

#include <algorithm>
#include <optional>

#include "frame/context.h"
#include "subitems/suffixtext.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

constexpr qsizetype largoCodificado = 4;
constexpr qsizetype largoLibre = 2;

/// A family with its rows, the first of which tells its kind.
struct Familia {
    QString codigo;
    std::vector<FilaDeSufijo> filas;

    bool libre() const { return filas.front().sufijo.size() == largoLibre; }
    bool codificada() const { return filas.front().sufijo.size() == largoCodificado; }
    bool texto() const { return libre() && codigo.startsWith(QLatin1Char('A'), Qt::CaseInsensitive); }
    bool numero() const { return libre() && codigo.startsWith(QLatin1Char('Z'), Qt::CaseInsensitive); }
    bool esArticulo() const {
        return codigo.compare("AB"_L1, Qt::CaseInsensitive) == 0 ||
               codigo.compare("AI"_L1, Qt::CaseInsensitive) == 0;
    }
};

/// What one run goes by.
struct Corrida {
    AppContext &ctx;
    const QString &articulo;
    const QString &descripcion;
    std::vector<sufijos::Token> dados;  ///< the closed tokens of the text in hand
};

/// The reconfirmation flag is off after each run, on every road.
class BanderaDeReconfirmacion {
 public:
    explicit BanderaDeReconfirmacion(AppContext &ctx) : ctx_(ctx) {}
    ~BanderaDeReconfirmacion() { ctx_.ReconfirmarSufijos = false; }
    BanderaDeReconfirmacion(const BanderaDeReconfirmacion &) = delete;
    BanderaDeReconfirmacion &operator=(const BanderaDeReconfirmacion &) = delete;

 private:
    AppContext &ctx_;
};

bool consultarNcm(AppContext &ctx, const QString &sql, Recordset &rs) {
    return Consultar(ctx, u"NCM"_s, sql, rs);
}

bool existePosicion(AppContext &ctx, const QString &posicion) {
    const ClavesNcm claves = CortarPosicion(posicion);
    Recordset rs;
    return consultarNcm(ctx,
                        "select [001] as pos from ncm where [001]='"_L1 + claves.c001 + "' and [002]='"_L1 +
                            claves.c002 + "'"_L1,
                        rs);
}

/// The families that the position's four keys bring, in the order of the record set.
std::vector<Familia> leerFamilias(AppContext &ctx, const QString &posicion) {
    const QString lista = ListaDeClavesSim(posicion);
    std::vector<Familia> familias;
    Recordset rs;
    consultarNcm(ctx, "select distinct left(sufijo,2) as asufijo from sufidos where sim in "_L1 + lista, rs);
    for (; !rs.Eof(); rs.MoveNext()) {
        Familia familia{rs.Texto(u"asufijo"), {}};
        Recordset filas;
        consultarNcm(ctx,
                     "select sufijo,detalle from sufidos where sim in "_L1 + lista +
                         " and left(sufijo,2) = '"_L1 + familia.codigo + "'"_L1,
                     filas);
        for (; !filas.Eof(); filas.MoveNext())
            familia.filas.push_back({{}, filas.Texto(u"sufijo"), filas.Texto(u"detalle")});
        familias.push_back(std::move(familia));
    }
    return familias;
}

const sufijos::Token *tokenDe(const Corrida &c, const Familia &familia) {
    const auto hallado = std::find_if(c.dados.begin(), c.dados.end(), [&familia](const sufijos::Token &t) {
        return t.cerrado && t.familia.compare(familia.codigo, Qt::CaseInsensitive) == 0;
    });
    return hallado == c.dados.end() ? nullptr : &*hallado;
}

/// The token of a coded family; nothing when the list was left (told).
std::optional<QString> pedirOpcion(const Corrida &c, const Familia &familia) {
    QStringList filas{familia.codigo + "00 - "_L1 + u"Ninguna opción"_s};
    for (const FilaDeSufijo &f : familia.filas) filas << f.sufijo.trimmed() + " - "_L1 + f.detalle.trimmed();
    const sufijos::Token *token = tokenDe(c, familia);
    const auto esElToken = [token](const QString &fila) {
        return TokenDeOpcion(fila).compare(token->codigo, Qt::CaseInsensitive) == 0;
    };
    if (token != nullptr && std::any_of(filas.begin(), filas.end(), esElToken)) return token->codigo;
    const int cual =
        c.ctx.dialogos.elegir({"SUFIJO "_L1 + familia.codigo, filas, 0, Eleccion::Tipo::Sufijos});
    if (cual == -1) {
        c.ctx.dialogos.advertir(u"Carga de SUFIJOS cancelada"_s);
        return {};
    }
    if (cual < 0 || cual >= filas.size()) {
        c.ctx.dialogos.critico(u"Error en generar sufijos"_s);
        return {};
    }
    return TokenDeOpcion(filas[cual]);
}

int maximoDe(const Familia &familia) {
    constexpr int deNumero = 6;
    constexpr int deTexto = 20;
    constexpr int deAS = 40;
    if (familia.codigo.compare("AS"_L1, Qt::CaseInsensitive) == 0) return deAS;
    return familia.numero() ? deNumero : deTexto;
}

/// The token of a free family; nothing when the user gave up.
std::optional<QString> pedirValor(const Corrida &c, const Familia &familia) {
    const auto enFamilia = [&familia](const QString &valor) {
        return familia.codigo + QLatin1Char('(') + valor + QLatin1Char(')');
    };
    const sufijos::Token *token = tokenDe(c, familia);
    if (token != nullptr && token->libre() && !token->valor.trimmed().isEmpty())
        return enFamilia(token->valor);
    const int maximo = maximoDe(familia);
    const Entrada entrada{familia.filas.front().detalle.trimmed(), "SUFIJO "_L1 + familia.codigo, maximo,
                          (familia.esArticulo() ? c.articulo : c.descripcion).left(maximo)};
    for (;;) {
        const QString tecleado = c.ctx.dialogos.pedirTexto(entrada).value_or(QString());
        if (tecleado.isEmpty()) {
            if (c.ctx.dialogos.preguntar({u"Desea cancelar la operación"_s, {}, Icono::Pregunta, false}))
                return {};
            continue;
        }
        QString valor = sufijos::NormalizarValor(tecleado);
        if (familia.numero()) {
            valor = sufijos::NormalizarValorNumerico(valor);
            if (valor.isEmpty()) {
                c.ctx.dialogos.advertir(u"Debe Ingresar un Valor Númerico"_s);
                continue;
            }
        }
        if (!valor.isEmpty()) return enFamilia(valor);
    }
}

QString cerrar(const QString &texto) {
    return texto.endsWith(QLatin1Char('-')) ? texto : texto + QLatin1Char('-');
}

QString preguntarFamilias(const Corrida &c, const std::vector<Familia> &familias) {
    QString texto;
    for (const Familia &familia : familias) {
        if (familia.filas.empty()) continue;
        std::optional<QString> token;
        if (familia.codificada())
            token = pedirOpcion(c, familia);
        else if (familia.texto() || familia.numero())
            token = pedirValor(c, familia);
        else
            continue;
        if (!token) return {};
        if (!texto.isEmpty()) texto += QLatin1Char('-');
        texto += *token;
    }
    return cerrar(texto);
}

/// True when the text in hand stands as it is.
bool estaBien(AppContext &ctx, const QString &posicion, const QString &actual) {
    const bool reconfirmar = ctx.ReconfirmarSufijos;
    if (reconfirmar)
        ctx.dialogos.advertir(
            u"Se encontró diferencias, entre los sufijos de su ARTICULO y la posición del "
            "nomenclador\r\n\r\nSe procederá a reconfirmarlos."_s,
            u"Verificación de Sufijos"_s);
    if (SuffixCheckerClass(ctx).Validar(posicion, actual) == 0) return true;
    if (!reconfirmar)
        ctx.dialogos.advertir(u"Se encontro diferencias entre los Sufijos de Subitem y el nomenclador."_s);
    return false;
}

QString validar(const Corrida &c, const QString &posicion, const QString &actual, ModoDeSufijos modo) {
    AppContext &ctx = c.ctx;
    if (!existePosicion(ctx, posicion)) {
        ctx.dialogos.advertir("No existe la posicion "_L1 + posicion + " en el nomenclador"_L1);
        return sufijos::errorNcm;
    }
    std::vector<Familia> familias;
    {
        const Reloj reloj(ctx.dialogos);
        familias = leerFamilias(ctx, posicion);
    }
    if (familias.empty()) {
        ctx.dialogos.mensaje({u"No se encontro Sufijo en el nomenclador"_s, {}, Icono::Ninguno, false});
        return sufijos::sinSufijos;
    }
    if (modo != ModoDeSufijos::Construir && !actual.isEmpty() && estaBien(ctx, posicion, actual))
        return cerrar(actual);
    return preguntarFamilias(c, familias);
}

}  // namespace

QString ValidarSufijos(AppContext &ctx, const QString &posicion, const QString &actual, ModoDeSufijos modo,
                       const QString &articuloPorDefecto, const QString &descripcionPorDefecto) {
    const BanderaDeReconfirmacion bandera(ctx);
    try {
        return validar({ctx, articuloPorDefecto, descripcionPorDefecto, sufijos::Partir(actual)}, posicion,
                       actual, modo);
    } catch (const Falla &e) {
        ctx.dialogos.critico(QString::number(e.numero) + " - "_L1 + e.descripcion);
        return {};
    }
}

bool SufijosAceptados(const QString &respuesta) {
    return !respuesta.isEmpty() && respuesta != sufijos::errorNcm && respuesta != sufijos::cancelado;
}

QString ActuSufijos(AppContext &ctx, const QString &posicion, const QString &actual,
                    const QString &articuloPorDefecto, const QString &descripcionPorDefecto) {
    const QString nuevo = ValidarSufijos(ctx, posicion, actual, ModoDeSufijos::Reconfirmar,
                                         articuloPorDefecto, descripcionPorDefecto);
    return SufijosAceptados(nuevo) ? nuevo : actual;
}

QString TokenDeOpcion(const QString &fila) {
    return fila.left(largoCodificado);
}

DatosDeSufijos LeerDatosDeSufijos(AppContext &ctx, const QString &posicion, const QString &texto) {
    DatosDeSufijos datos{posicion, LeerSufijos(ctx, posicion), {}, {}};
    for (const sufijos::Token &token : sufijos::Partir(texto)) {
        const QString buscado = token.libre() ? token.familia : token.codigo;
        const auto fila =
            std::find_if(datos.catalogo.begin(), datos.catalogo.end(), [&buscado](const FilaDeSufijo &f) {
                return f.sufijo.trimmed().compare(buscado, Qt::CaseInsensitive) == 0;
            });
        datos.linea.push_back(
            {token.texto(), fila == datos.catalogo.end() ? QString() : fila->detalle.trimmed()});
    }
    const RequisitosDeSufijo requisitos = SuffixCheckerClass(ctx).Requisitos(posicion);
    if (!requisitos.existe)
        datos.estado = u"La posición no existe en el nomenclador"_s;
    else if (requisitos.familias.empty())
        datos.estado = u"La posición no pide sufijos"_s;
    else
        datos.estado = u"Familias pedidas: %1. %2"_s.arg(requisitos.familias.size())
                           .arg(SuffixCheckerClass::Cumple(requisitos, texto) == 0 ? u"Sufijos completos"_s
                                                                                   : u"Faltan sufijos"_s);
    return datos;
}
