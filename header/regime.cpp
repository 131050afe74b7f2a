#include "header/regime.h"

#include <algorithm>
#include <array>

#include "frame/context.h"

namespace {

template <std::size_t N>
bool esta(const std::array<QLatin1String, N> &lista, QStringView codigo) {
    return std::find(lista.begin(), lista.end(), codigo) != lista.end();
}

using L = QLatin1String;

const std::array<L, 17> temporales{L("IT01"), L("IT03"), L("IT04"), L("IT05"), L("IT06"), L("IT07"),
                                   L("IT11"), L("IT13"), L("IT14"), L("IT15"), L("IT16"), L("IT17"),
                                   L("ET01"), L("ET02"), L("ETA1"), L("ETE1"), L("ETE2")};

// RnaE06 is spelled in mixed case, and only so.
const std::array<L, 23> conInsumos{L("EC02"), L("EC03"), L("EC04"), L("EC05"), L("EC06"), L("EC16"),
                                   L("EG02"), L("EG03"), L("IC81"), L("IC82"), L("IC83"), L("DIR6"),
                                   L("IC06"), L("IC26"), L("IC36"), L("IG06"), L("IT06"), L("RnaE06"),
                                   L("TG06"), L("TG16"), L("TR06"), L("MARE"), L("IDT4")};

const std::array<L, 42> conSolapa{
    L("EC02"), L("EC04"), L("EC06"), L("EC07"), L("EC08"), L("EC09"), L("ECR1"), L("ECR2"), L("EG02"),
    L("EG07"), L("ET01"), L("ET02"), L("ETA1"), L("ETE1"), L("ETE2"), L("IC31"), L("IC33"), L("IC34"),
    L("IC35"), L("IC41"), L("IC44"), L("IC45"), L("IC83"), L("ICR1"), L("ICR2"), L("ICR3"), L("ICR4"),
    L("ICRF"), L("IG34"), L("IG35"), L("IG83"), L("RR01"), L("ZFE1"), L("ZFE2"), L("ZFE3"), L("ZFE4"),
    L("ZFE5"), L("ZFE6"), L("ZFER"), L("ZFET"), L("ZFRE"), L("ZFTR")};

struct Opcion {
    QLatin1String codigo;
    const char16_t *texto;
};
const std::array<Opcion, 4> opcionesIVA{{{L("NOCONTESTA"), u"<No contestar>"},
                                         {L("NO_VALIDA"), u"Ninguno"},
                                         {L("IVAAD1"), u"Uso o Consumo Particular"},
                                         {L("IVAAD2"), u"Importación definitiva de cosas muebles"}}};
const std::array<Opcion, 5> opcionesGanancias{{{L("NOCONTESTA"), u"<No contestar>"},
                                               {L("NO_VALIDA"), u"Ninguno"},
                                               {L("COMERC"), u"Comercial"},
                                               {L("BDEUSO"), u"Bien de Uso"},
                                               {L("USOPAR"), u"Uso Particular"}}};

template <std::size_t N>
QString codigoDe(const std::array<Opcion, N> &opciones, int indice) {
    return indice >= 0 && indice < static_cast<int>(N)
               ? QString(opciones[static_cast<std::size_t>(indice)].codigo)
               : QString();
}
template <std::size_t N>
QString textoDe(const std::array<Opcion, N> &opciones, int indice) {
    return indice >= 0 && indice < static_cast<int>(N)
               ? QString::fromUtf16(opciones[static_cast<std::size_t>(indice)].texto)
               : QString();
}
template <std::size_t N>
int indiceDe(const std::array<Opcion, N> &opciones, const QString &codigo) {
    for (std::size_t i = 0; i < N; ++i)
        if (codigo == opciones[i].codigo) return static_cast<int>(i);
    return -1;
}

}  // namespace

QString DireccionRegimen(AppContext &ctx, const QString &codigo) {
    if (codigo.isEmpty()) return {};
    Recordset rs;
    if (!Consultar(ctx, QStringLiteral("SYSTABLAS"),
                   QStringLiteral("select cstaimpexp from sta where id = '") + codigo + QStringLiteral("'"),
                   rs))
        return {};
    return rs.Texto(u"cstaimpexp");
}

bool EsIC0oIG(QStringView codigo) {
    return Left(codigo, 3) == L("IC0") || Left(codigo, 2) == L("IG");
}
bool EsTransito(QStringView codigo) {
    return Left(codigo, 2) == L("TR");
}
bool EsExportacionConsumo(QStringView codigo) {
    return Left(codigo, 2) == L("EC") || Left(codigo, 2) == L("EG");
}
bool EsDirectoOZona(QStringView codigo) {
    return Left(codigo, 3) == L("DIR") || Left(codigo, 3) == L("IG0") || Left(codigo, 3) == L("ZFE");
}
bool PreguntaOpcionesImpositivas(QStringView codigo) {
    return Left(codigo, 1) == L("I") || Left(codigo, 4) == L("LAPI") || Left(codigo, 4) == L("DJAI");
}
bool EsDeclaracionDJAI(QStringView codigo) {
    return codigo == L("DJAI");
}
bool EsDeclaracionLAPI(QStringView codigo) {
    return codigo == L("LAPI");
}
bool EsEC16(QStringView codigo) {
    return codigo == L("EC16");
}

bool RegimenUsaHojaValor(QStringView codigo) {
    const QStringView uno = Left(codigo, 1);
    if (uno == L("I") || uno == L("T") || uno == L("D") || uno == L("R") || codigo == L("LAPI")) return true;
    return Left(codigo, 2) == L("ZF") && Left(codigo, 4) != L("ZFTR") && Left(codigo, 4) != L("ZFRE");
}

QString TipoDeclaracion(QStringView codigo) {
    return Left(codigo, 2).compare(L("TG"), Qt::CaseInsensitive) == 0 ? QStringLiteral("T")
                                                                      : QStringLiteral("P");
}

bool EsRegimenTemporal(QStringView codigo) {
    return esta(temporales, codigo);
}
bool EsRegimenConInsumos(QStringView codigo) {
    return esta(conInsumos, codigo);
}
bool EsRegimenConSolapaInsumos(QStringView codigo) {
    return esta(conSolapa, codigo.trimmed());
}

QString OpcionIVACodigo(int indice) {
    return codigoDe(opcionesIVA, indice);
}
QString OpcionIVATexto(int indice) {
    return textoDe(opcionesIVA, indice);
}
int OpcionIVAIndice(const QString &codigo) {
    return indiceDe(opcionesIVA, codigo);
}
QString OpcionGananciasCodigo(int indice) {
    return codigoDe(opcionesGanancias, indice);
}
QString OpcionGananciasTexto(int indice) {
    return textoDe(opcionesGanancias, indice);
}
int OpcionGananciasIndice(const QString &codigo) {
    return indiceDe(opcionesGanancias, codigo);
}

bool SufijoContieneArticulo(const QString &posicion, const QString &sufijos, const QString &articulo) {
    static const std::array<L, 8> automotrices{L("8407"), L("8408"), L("8701"), L("8702"),
                                               L("8703"), L("8704"), L("8706"), L("8707")};
    if (posicion == L("8409.91.12.100G") || posicion == L("8409.99.12.100C") ||
        esta(automotrices, QStringView(posicion).left(4)))
        return true;
    QString valor = articulo;
    for (const char marca : {'-', '(', ')'}) valor.replace(QLatin1Char(marca), QLatin1Char(' '));
    while (valor.contains(L("  "))) valor.replace(L("  "), L(" "));
    valor = valor.trimmed().toUpper();
    const QString texto = sufijos.toUpper();
    return texto.contains(L("AI(") + valor + L(")")) || texto.contains(L("AB(") + valor + L(")"));
}

QString NormalizarTexto(const QString &texto) {
    QString limpio = texto.trimmed().toUpper().left(40);
    for (QChar &c : limpio) {
        const bool queda =
            (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || QStringView(u"Ñ.,/#&").contains(c);
        if (!queda) c = u' ';
    }
    return limpio;
}
