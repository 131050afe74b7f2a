#include "header/regime.h"

#include <algorithm>
#include <array>

#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

template <std::size_t N>
bool esta(const std::array<QLatin1String, N> &lista, QStringView codigo) {
    return std::find(lista.begin(), lista.end(), codigo) != lista.end();
}

using L = QLatin1String;

const std::array<L, 17> temporales{"IT01"_L1, "IT03"_L1, "IT04"_L1, "IT05"_L1, "IT06"_L1, "IT07"_L1,
                                   "IT11"_L1, "IT13"_L1, "IT14"_L1, "IT15"_L1, "IT16"_L1, "IT17"_L1,
                                   "ET01"_L1, "ET02"_L1, "ETA1"_L1, "ETE1"_L1, "ETE2"_L1};

// Spelled in mixed case, and only so.
constexpr L mezclado("RnaE06");

const std::array<L, 23> conInsumos{"EC02"_L1, "EC03"_L1, "EC04"_L1, "EC05"_L1, "EC06"_L1, "EC16"_L1,
                                   "EG02"_L1, "EG03"_L1, "IC81"_L1, "IC82"_L1, "IC83"_L1, "DIR6"_L1,
                                   "IC06"_L1, "IC26"_L1, "IC36"_L1, "IG06"_L1, "IT06"_L1, mezclado,
                                   "TG06"_L1, "TG16"_L1, "TR06"_L1, "MARE"_L1, "IDT4"_L1};

const std::array<L, 42> conSolapa{
    "EC02"_L1, "EC04"_L1, "EC06"_L1, "EC07"_L1, "EC08"_L1, "EC09"_L1, "ECR1"_L1, "ECR2"_L1, "EG02"_L1,
    "EG07"_L1, "ET01"_L1, "ET02"_L1, "ETA1"_L1, "ETE1"_L1, "ETE2"_L1, "IC31"_L1, "IC33"_L1, "IC34"_L1,
    "IC35"_L1, "IC41"_L1, "IC44"_L1, "IC45"_L1, "IC83"_L1, "ICR1"_L1, "ICR2"_L1, "ICR3"_L1, "ICR4"_L1,
    "ICRF"_L1, "IG34"_L1, "IG35"_L1, "IG83"_L1, "RR01"_L1, "ZFE1"_L1, "ZFE2"_L1, "ZFE3"_L1, "ZFE4"_L1,
    "ZFE5"_L1, "ZFE6"_L1, "ZFER"_L1, "ZFET"_L1, "ZFRE"_L1, "ZFTR"_L1};

struct Opcion {
    QLatin1String codigo;
    const char16_t *texto;
};
const std::array<Opcion, 4> opcionesIVA{{{"NOCONTESTA"_L1, u"<No contestar>"},
                                         {"NO_VALIDA"_L1, u"Ninguno"},
                                         {"IVAAD1"_L1, u"Uso o Consumo Particular"},
                                         {"IVAAD2"_L1, u"Importación definitiva de cosas muebles"}}};
const std::array<Opcion, 5> opcionesGanancias{{{"NOCONTESTA"_L1, u"<No contestar>"},
                                               {"NO_VALIDA"_L1, u"Ninguno"},
                                               {"COMERC"_L1, u"Comercial"},
                                               {"BDEUSO"_L1, u"Bien de Uso"},
                                               {"USOPAR"_L1, u"Uso Particular"}}};

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

QString RegimenEnMayusculas(const QString &codigo) {
    return codigo == mezclado ? codigo : codigo.toUpper();
}

QString DireccionRegimen(AppContext &ctx, const QString &codigo) {
    if (codigo.isEmpty()) return {};
    Recordset rs;
    if (!Consultar(ctx, u"SYSTABLAS"_s, "select cstaimpexp from sta where id = "_L1 + EnComillas(codigo), rs))
        return {};
    return rs.Texto(u"cstaimpexp");
}

bool EsIC0oIG(QStringView codigo) {
    return Left(codigo, 3) == "IC0"_L1 || Left(codigo, 2) == "IG"_L1;
}
bool EsTransito(QStringView codigo) {
    return Left(codigo, 2) == "TR"_L1;
}
bool EsExportacionConsumo(QStringView codigo) {
    return Left(codigo, 2) == "EC"_L1 || Left(codigo, 2) == "EG"_L1;
}
bool EsDirectoOZona(QStringView codigo) {
    return Left(codigo, 3) == "DIR"_L1 || Left(codigo, 3) == "IG0"_L1 || Left(codigo, 3) == "ZFE"_L1;
}
bool PreguntaOpcionesImpositivas(QStringView codigo) {
    return Left(codigo, 1) == "I"_L1 || Left(codigo, 4) == "LAPI"_L1 || Left(codigo, 4) == "DJAI"_L1;
}
bool EsDeclaracionDJAI(QStringView codigo) {
    return codigo == "DJAI"_L1;
}
bool EsDeclaracionLAPI(QStringView codigo) {
    return codigo == "LAPI"_L1;
}
bool EsEC16(QStringView codigo) {
    return codigo == "EC16"_L1;
}

bool EsRegimenConONCCA(QStringView codigo) {
    return Left(codigo, 2) == "EC"_L1;
}

bool RegimenUsaHojaValor(QStringView codigo) {
    const QStringView uno = Left(codigo, 1);
    if (uno == "I"_L1 || uno == "T"_L1 || uno == "D"_L1 || uno == "R"_L1 || codigo == "LAPI"_L1) return true;
    return Left(codigo, 2) == "ZF"_L1 && Left(codigo, 4) != "ZFTR"_L1 && Left(codigo, 4) != "ZFRE"_L1;
}

QString TipoDeclaracion(QStringView codigo) {
    return Left(codigo, 2).compare("TG"_L1, Qt::CaseInsensitive) == 0 ? u"T"_s : u"P"_s;
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
    static const std::array<L, 8> automotrices{"8407"_L1, "8408"_L1, "8701"_L1, "8702"_L1,
                                               "8703"_L1, "8704"_L1, "8706"_L1, "8707"_L1};
    if (posicion == "8409.91.12.100G"_L1 || posicion == "8409.99.12.100C"_L1 ||
        esta(automotrices, QStringView(posicion).left(4)))
        return true;
    QString valor = articulo;
    for (const char marca : {'-', '(', ')'}) valor.replace(QLatin1Char(marca), QLatin1Char(' '));
    while (valor.contains("  "_L1)) valor.replace("  "_L1, " "_L1);
    valor = valor.trimmed().toUpper();
    const QString texto = sufijos.toUpper();
    return texto.contains("AI("_L1 + valor + ")"_L1) || texto.contains("AB("_L1 + valor + ")"_L1);
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
