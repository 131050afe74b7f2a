#include "subitems/tariffsheet.h"

#include <array>

#include "frame/base/values.h"
#include "frame/context.h"
#include "regulatory/letters.h"
#include "subitems/nomenclature.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

/// A column of the nomenclature with its label on the sheet.
struct Renglon {
    const char *columna;
    const char *etiqueta;
};

constexpr std::array<Renglon, 3> generales{
    {{"012", "Unidad Estadistica:"}, {"020", "Unidad del Derecho Especifico:"}, {"013", "Ramo:"}}};

constexpr std::array<Renglon, 8> gravamenes{{{"015", "Derecho de Importación Extrazona:"},
                                             {"021", "Derecho de Importación intrazona:"},
                                             {"026", "Arancel Externo Común:"},
                                             {"016", "Estadistica:"},
                                             {"017", "Derecho Especifico:"},
                                             {"018", "Derecho de Exportación:"},
                                             {"019", "Reintegro Extrazona:"},
                                             {"048", "Marca de Exento de IVA:"}}};

constexpr std::array<Renglon, 9> fuentes{{{"030", "Derecho Import. Extrazona:"},
                                          {"031", "Estadistica:"},
                                          {"032", "Derecho Especifico:"},
                                          {"033", "Derecho de Exportación:"},
                                          {"034", "Reintegro Extrazona:"},
                                          {"035", "Derecho de Import. Intrazona:"},
                                          {"036", "Reintegro de Brasil:"},
                                          {"037", "Reintegro de Uruguay:"},
                                          {"038", "Reintegro de Paraguay:"}}};

constexpr std::array<Renglon, 24> posee{{{"040", "Impuestos Internos:"},
                                         {"041", "Estampillado:"},
                                         {"042", "Eiquetado:"},
                                         {"043", "Intervención:"},
                                         {"044", "Prohibición:"},
                                         {"045", "Antidumping:"},
                                         {"046", "Exención Estadística:"},
                                         {"047", "Usados:"},
                                         {"049", "Certificado de Origen Res.763/96:"},
                                         {"050", "Valores de Refencia:"},
                                         {"051", "Certificado de Insp. Preembarque:"},
                                         {"052", "Lealtad Comercial (Seg. Eléctrica):"},
                                         {"053", "Indicador de Maximo Arancel:"},
                                         {"054", "Lista de Exclusiones:"},
                                         {"055", "Bien de Capital:"},
                                         {"056", "Bien de Informatica/Telecom:"},
                                         {"057", "Reg. de Adecuación:"},
                                         {"058", "Cupo Salvaguardia:"},
                                         {"059", "Formulario Informativo:"},
                                         {"060", "Insumos Inversiones Mineras:"},
                                         {"061", "Seguridad Gas:"},
                                         {"062", "Seguridad Aceros:"},
                                         {"070", "Código Pago Anticipado (IMPO):"},
                                         {"071", "Plazo para Ingreso de Divisas:"}}};

QString valorDe(const Recordset &rs, const char *columna) {
    return rs.Texto(QString(L(columna)));
}

template <std::size_t N>
SeccionDeHoja seccion(const Recordset &rs, const char *titulo, const std::array<Renglon, N> &renglones,
                      bool soloConValor) {
    SeccionDeHoja s{QString::fromUtf8(titulo), {}};
    for (const Renglon &r : renglones) {
        QString valor = valorDe(rs, r.columna);
        const bool vacio = valor.trimmed().isEmpty();
        if (vacio && soloConValor) continue;
        if (L(r.columna) == "071"_L1) valor = PlazoDeDivisas(valor);
        if (vacio && L(r.columna) == "020"_L1) valor = u"No posee"_s;
        s.lineas.push_back({QString::fromUtf8(r.etiqueta), valor});
    }
    return s;
}

}  // namespace

QString PlazoDeDivisas(const QString &codigo) {
    struct Plazo {
        const char *codigo;
        const char *texto;
    };
    static constexpr std::array<Plazo, 5> plazos{
        {{"1", "60 días"}, {"2", "180 días"}, {"3", "360 días"}, {"4", "210 días"}, {"8", "180 / 60"}}};
    for (const Plazo &p : plazos)
        if (codigo.trimmed() == L(p.codigo)) return QString::fromUtf8(p.texto);
    return u"ERROR"_s;
}

std::optional<HojaDelNomenclador> DetalleNomenclador(AppContext &ctx, const QString &posicion) {
    constexpr int largoDeSim = 14;
    const Reloj reloj(ctx.dialogos);
    HojaDelNomenclador hoja;
    const QString propio = posicion.left(largoDeSim);
    for (const FilaDeSufijo &f : LeerSufijos(ctx, posicion))
        hoja.sufijos.push_back({f.sufijo, f.detalle, f.sim.compare(propio, Qt::CaseInsensitive) == 0});
    const ClavesNcm claves = CortarPosicion(posicion);
    Recordset rs;
    if (!Consultar(ctx, u"NCM"_s,
                   "select * "
                   "from ncm "
                   "where [001] = "_L1 +
                       TextoEnComillas(claves.c001) + " and [002] = "_L1 + TextoEnComillas(claves.c002),
                   rs))
        return {};
    hoja.secciones = {seccion(rs, "Detalles del Nomenclador", generales, false),
                      seccion(rs, "GRAVAMENES", gravamenes, false), seccion(rs, "FUENTES", fuentes, false),
                      seccion(rs, "POSEE", posee, true)};
    hoja.encabezado = u"Posición Arancelaria: "_s + posicion +
                      "\r\n-----------------------------------------\r\n"_L1 + valorDe(rs, "010") +
                      "\r\n"_L1 + valorDe(rs, "004");
    hoja.letra = obtenerDelNcmLaLetraDeUnaPADada(ctx, posicion);
    hoja.descripcionLetra = obtenerDescripcionAPartirDeLaLetra(ctx, hoja.letra);
    return hoja;
}
