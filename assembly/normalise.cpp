#include <array>

#include "assembly/run.h"
#include "frame/values.h"

namespace {

/// One statement: what stands ahead of the key, and behind it.
struct Relleno {
    const char *antes;
    const char *detras = "'";
};

// In this order: the suffix blanks come before the trailing dash, the null fills before the unit fills.
constexpr std::array<Relleno, 36> rellenos{{
    {"UPDATE SUBITEMS SET BIENDEUSO = 'N' WHERE INTERNO = '", "' and (BIENDEUSO='' or BIENDEUSO is null)"},
    {"update subitems set tipoitem = 'N' where interno = '", "' and (tipoitem = '' or tipoitem is null)"},
    {"update subitems set valorderesp = 0 where (valorderesp is null) and interno = '"},
    {"update subitems set sufijos = '' where sufijos = 'SIN SUFIJOS' and interno = '"},
    {"update subitems set sufijos = '' where sufijos IS NULL and interno = '"},
    {"update subitems set idarticulo = '' where idarticulo is null and interno = '"},
    {"update subitems set Idpais = '' where Idpais is null and interno = '"},
    {"update subitems set descripcion_maria = '' where descripcion_maria is null and interno = '"},
    {"update subitems set descripcion = '' where descripcion is null and interno = '"},
    {"update subitems set Idpaisproc = '' where Idpaisproc is null and interno = '"},
    {"update subitems set estadomerc = '' where estadomerc is null and interno = '"},
    {"update subitems set biendeuso = '' where biendeuso is null and interno = '"},
    {"update subitems set codprorrateo = '' where codprorrateo is null and interno = '"},
    {"update subitems set LAPI = '' where LAPI is null and interno = '"},
    {"update subitems set itfiller = '' where itfiller is null and interno = '"},
    {"update subitems set deresp = '' where deresp is null and interno = '"},
    {"update subitems set cancelaciones = '' where cancelaciones is null and interno = '"},
    {"update subitems set codigoean = '' where codigoean is null and interno =  '"},
    {"Update SubItems set sufijos = sufijos+'-' where not (sufijos = 'SIN SUFIJOS' or sufijos = '' or sufijos is null) and "
     "right(sufijos,1)<>'-' and interno = '"},
    {"Update SubItems set insumostemp = 0 where ISNUMERIC(insumostemp)=0 and interno =  '"},
    {"Update SubItems set insumostemp = 0 where insumostemp is null  and interno =  '"},
    {"Update SubItems set insumosacons = 0 where ISNUMERIC(insumosacons)=0  and interno =  '"},
    {"Update SubItems set insumosacons = 0 where insumosacons is null  and interno =  '"},
    {"Update SubItems set kgneto = 0 where kgneto is null  and interno =  '"},
    {"Update SubItems set ONCCACategoria = '' where ONCCACategoria is null  and interno =  '"},
    {"Update SubItems set ONCCACortes = '' where ONCCACortes is null  and interno =  '"},
    {"update subitems set idexportacion = 0 where interno = '", "' and idexportacion is null"},
    {"update descargas set idexportacion = 0 where interno = '", "' and idexportacion is null"},
    {"update descargas set iditem = NULL where interno = '", "' and iditem = ''"},
    {"update descargas set idext = NULL where interno = '", "' and iditem is not null"},
    {"Update SubItems set AjusteIncluir = 0 where ISNUMERIC(AjusteIncluir)=0 and interno =  '"},
    {"Update SubItems set AjusteIncluir = 0 where AjusteIncluir is null  and interno =  '"},
    {"Update SubItems set AjusteDeducir = 0 where ISNUMERIC(AjusteDeducir)=0 and interno =  '"},
    {"Update SubItems set AjusteDeducir = 0 where AjusteDeducir is null  and interno =  '"},
    {"update subitems set valorrelacionestadistica = cantidad where idunidad = estadistica and valorrelacionestadistica = 0 and interno = '"},
    {"update subitems set kgneto = cantidad where idunidad = '01' and kgneto = 0 and interno = '"},
}};

QString alaDerecha(const QString &texto, int ancho) { return texto.rightJustified(ancho); }

QString textoDeError(int codigo) {
    switch (codigo) {
        case 1:
            return QStringLiteral("Error: POSICIÓN INVALIDA");
        case 2:
            return QStringLiteral("Error: SUFIJO INVÁLIDOS");
        default:
            return QStringLiteral("Error: DESCONOCIDO");
    }
}

}  // namespace

void NormalizarLineas(ContextoArmado &r) {
    for (const Relleno &relleno : rellenos) r.ejecutar(QLatin1String(relleno.antes) + r.interno + QLatin1String(relleno.detras));
    if (r.opciones.modo == ModoDescripcion::Catalogo)
        r.ejecutar(QLatin1String("update subitems set descripcion_maria = descripcion where interno = '") + r.interno + QLatin1String("'"));
}

Fase ControlarDescripciones(ContextoArmado &r) {
    if (!r.esDJAI() || (r.opciones.modo != ModoDescripcion::Maria && r.opciones.modo != ModoDescripcion::Catalogo)) return Fase::Sigue;
    Recordset rs;
    r.consultar(QLatin1String("select count(*) as total from subitems where interno = '") + r.interno + QLatin1String("' and descripcion_maria = ''"), rs);
    const double total = rs.Numero(u"Total");
    if (total <= 0) return Fase::Sigue;
    if (r.ctx.dialogos.preguntar({QStringLiteral("Hay %1 articulos sin descripción, ¿desea continuar?").arg(PonerPuntoDecimal(total)), {}, Icono::Pregunta, false}))
        return Fase::Sigue;
    r.ctx.ChequeoArmado = QStringLiteral("No");
    return Fase::Corta;
}

Fase RevalidarSufijos(ContextoArmado &r) {
    Conexion &conexion = r.internos().GetAssemblyConnection();
    conexion.Sql = QLatin1String("select distinct ncm,sufijos from subitems where interno = '") + r.interno + QLatin1String("'");
    Recordset rs;
    conexion.crearrs(rs);
    const int total = rs.RecordCount();
    QString informe;
    for (int n = 0; !rs.Eof(); rs.MoveNext(), ++n) {
        const QString ncm = rs.Texto(u"NCM");
        const QString sufijos = rs.Texto(u"sufijos");
        if (const int codigo = r.ctx.SuffixChecker.Validar(ncm, sufijos); codigo != 0) {
            if (informe.isEmpty())
                informe = QStringLiteral("Se han encontrado subitem's inválidos\r\n-------------------------------------\r\n\r\n") +
                          alaDerecha(QStringLiteral("Posición"), 15) + QString(15, QLatin1Char('-')) + QLatin1Char(' ') + QString(10, QLatin1Char('-')) +
                          QLatin1String(" \r\n");
            informe += alaDerecha(ncm, 15) + QString(33, QLatin1Char(' ')) + QLatin1String(" - ") + sufijos + QLatin1String("\r\n") + textoDeError(codigo) +
                       QLatin1String("\r\n\r\n");
        }
        r.ctx.dialogos.avance({Avance::Tipo::Etiqueta, 0, QStringLiteral("Label8"), 0, 0, QStringLiteral("Revalidando %1 de %2 Sufijos").arg(n).arg(total)});
        r.ctx.dialogos.avance({Avance::Tipo::Barra, 0, QStringLiteral("pbSUF"), n + 1, total, {}});
        r.ctx.dialogos.atenderEventos();
    }
    if (informe.isEmpty()) return Fase::Sigue;
    r.ctx.dialogos.informe({{}, informe, false});
    r.ctx.ChequeoArmado = QStringLiteral("No");
    return Fase::Corta;
}
