#include "subitems/suffixes.h"

#include "subitems/SuffixChecker.h"

#include <algorithm>
#include <optional>

#include "frame/context.h"
#include "frame/failures.h"
#include "subitems/suffixtext.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype largoCodificado = 4;

using Familia = FamiliaDelCatalogo;

bool esArticulo(const Familia &familia) {
    return familia.codigo.compare("AB"_L1, Qt::CaseInsensitive) == 0 ||
           familia.codigo.compare("AI"_L1, Qt::CaseInsensitive) == 0;
}

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
                          (esArticulo(familia) ? c.articulo : c.descripcion).left(maximo)};
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
        if (!familia.pedible()) continue;
        const auto token = familia.codificada() ? pedirOpcion(c, familia) : pedirValor(c, familia);
        if (!token) return {};
        if (!texto.isEmpty()) texto += QLatin1Char('-');
        texto += *token;
    }
    return texto.isEmpty() ? texto : cerrar(texto);
}

/// A text that stands, closed; one without tokens is the empty text.
QString cerrado(const Corrida &c, const QString &actual) {
    if (actual == sufijos::sinSufijos) return actual;
    return c.dados.empty() ? QString() : cerrar(actual);
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
    if (!ExistePosicion(ctx, posicion)) {
        ctx.dialogos.advertir("No existe la posicion "_L1 + posicion + " en el nomenclador"_L1);
        return sufijos::errorNcm;
    }
    std::vector<Familia> familias;
    {
        const Reloj reloj(ctx.dialogos);
        familias = LeerFamilias(ctx, posicion);
    }
    if (familias.empty()) {
        ctx.dialogos.mensaje({u"No se encontro Sufijo en el nomenclador"_s, {}, Icono::Ninguno, false});
        return sufijos::sinSufijos;
    }
    if (modo != ModoDeSufijos::Construir && !actual.isEmpty() && estaBien(ctx, posicion, actual))
        return cerrado(c, actual);
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
        ContarFalla(ctx, e);
        return {};
    }
}

QString CompletarSufijos(AppContext &ctx, const QString &posicion, const QString &actual, ModoDeSufijos modo,
                         const QString &articuloPorDefecto, const QString &descripcionPorDefecto) {
    QString nuevos = ValidarSufijos(ctx, posicion, actual, modo, articuloPorDefecto, descripcionPorDefecto);
    if (nuevos.isEmpty() && SuffixCheckerClass(ctx).Requisitos(posicion).familias.empty())
        nuevos = sufijos::sinSufijos;
    return nuevos;
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
