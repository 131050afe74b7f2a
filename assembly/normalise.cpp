// The lines as keyed, imported and copied hold nulls, blanks and half-filled measures. The grouping compares
// with equality, and a null equals nothing: so every column of a group's key gets a value here, in place.

#include <QHash>

#include "assembly/phases.h"
#include "subitems/SuffixChecker.h"

using namespace Qt::StringLiterals;

namespace {

// The order matters twice: the blanks of the suffixes come before their closing dash, and the nulls are
// filled before the measures. %1 is the operation's key.
constexpr const char *rellenos[] = {
    "UPDATE SUBITEMS SET BIENDEUSO = 'N' WHERE INTERNO = %1 and (BIENDEUSO='' or BIENDEUSO is null)",
    "update subitems set tipoitem = 'N' where interno = %1 and (tipoitem = '' or tipoitem is null)",

    "update subitems set valorderesp = 0 where (valorderesp is null) and interno = %1",
    "update subitems set sufijos = '' where sufijos = 'SIN SUFIJOS' and interno = %1",
    "update subitems set sufijos = '' where sufijos IS NULL and interno = %1",

    "update subitems set idarticulo = '' where idarticulo is null and interno = %1",
    "update subitems set Idpais = '' where Idpais is null and interno = %1",
    "update subitems set descripcion_maria = '' where descripcion_maria is null and interno = %1",
    "update subitems set descripcion = '' where descripcion is null and interno = %1",
    "update subitems set Idpaisproc = '' where Idpaisproc is null and interno = %1",
    "update subitems set estadomerc = '' where estadomerc is null and interno = %1",
    "update subitems set biendeuso = '' where biendeuso is null and interno = %1",
    "update subitems set codprorrateo = '' where codprorrateo is null and interno = %1",
    "update subitems set LAPI = '' where LAPI is null and interno = %1",
    "update subitems set itfiller = '' where itfiller is null and interno = %1",
    "update subitems set deresp = '' where deresp is null and interno = %1",
    "update subitems set cancelaciones = '' where cancelaciones is null and interno = %1",
    "update subitems set codigoean = '' where codigoean is null and interno =  %1",

    "Update SubItems set sufijos = sufijos+'-' "
    "where not (sufijos = 'SIN SUFIJOS' or sufijos = '' or sufijos is null) "
    "and right(sufijos,1)<>'-' and interno = %1",

    // The inputs can hold stray text.
    "Update SubItems set insumostemp = 0 where ISNUMERIC(insumostemp)=0 and interno =  %1",
    "Update SubItems set insumostemp = 0 where insumostemp is null  and interno =  %1",
    "Update SubItems set insumosacons = 0 where ISNUMERIC(insumosacons)=0  and interno =  %1",
    "Update SubItems set insumosacons = 0 where insumosacons is null  and interno =  %1",
    "Update SubItems set kgneto = 0 where kgneto is null  and interno =  %1",
    "Update SubItems set ONCCACategoria = '' where ONCCACategoria is null  and interno =  %1",
    "Update SubItems set ONCCACortes = '' where ONCCACortes is null  and interno =  %1",

    "update subitems set idexportacion = 0 where interno = %1 and idexportacion is null",
    "update descargas set idexportacion = 0 where interno = %1 and idexportacion is null",
    "update descargas set iditem = NULL where interno = %1 and iditem = ''",
    "update descargas set idext = NULL where interno = %1 and iditem is not null",

    // So can the adjustments.
    "Update SubItems set AjusteIncluir = 0 where ISNUMERIC(AjusteIncluir)=0 and interno =  %1",
    "Update SubItems set AjusteIncluir = 0 where AjusteIncluir is null  and interno =  %1",
    "Update SubItems set AjusteDeducir = 0 where ISNUMERIC(AjusteDeducir)=0 and interno =  %1",
    "Update SubItems set AjusteDeducir = 0 where AjusteDeducir is null  and interno =  %1",

    "update subitems set valorrelacionestadistica = cantidad "
    "where idunidad = estadistica and valorrelacionestadistica = 0 and interno = %1",
    "update subitems set kgneto = cantidad where idunidad = '01' and kgneto = 0 and interno = %1",
};

constexpr qsizetype anchoDePosicion = 15;
constexpr qsizetype sangriaDelSufijo = 33;

QString palabraDelError(int respuesta) {
    switch (respuesta) {
        case 1:
            return u"Error: POSICIÓN INVALIDA"_s;
        case 2:
            return u"Error: SUFIJO INVÁLIDOS"_s;
        default:
            return u"Error: DESCONOCIDO"_s;
    }
}

QString cabezaDelInforme() {
    return u"Se han encontrado subitem's inválidos\r\n-------------------------------------\r\n\r\n"_s +
           u"Posición"_s.rightJustified(anchoDePosicion) + QString(anchoDePosicion, '-'_L1) + ' '_L1 +
           QString(10, '-'_L1) + " \r\n"_L1;
}

}  // namespace

void NormalizarLineas(ContextoArmado &r) {
    for (const char *relleno : rellenos) r.mandar(QLatin1StringView(relleno).arg(r.clave()));
    if (r.opciones.modo == ModoDescripcion::Catalogo)
        r.mandar("update subitems set descripcion_maria = descripcion where interno = "_L1 + r.clave());
}

Fase ControlarDescripciones(ContextoArmado &r) {
    const ModoDescripcion modo = r.opciones.modo;
    if (!r.esDJAI() || (modo != ModoDescripcion::Maria && modo != ModoDescripcion::Catalogo))
        return Fase::Sigue;
    Recordset rs;
    r.consultar(
        u"select count(*) as total from subitems "
        "where interno = %1 and descripcion_maria = ''"_s.arg(r.clave()),
        rs);
    if (rs.Numero(u"total") <= 0) return Fase::Sigue;
    Pregunta p;
    p.texto = u"Hay %1 articulos sin descripción, ¿desea continuar?"_s.arg(rs.Texto(u"total"));
    if (r.ctx.dialogos.preguntar(p)) return Fase::Sigue;
    r.ctx.ChequeoArmado = u"No"_s;
    return Fase::Corta;
}

Fase RevalidarSufijos(ContextoArmado &r) {
    const Dialogos &dialogos = r.ctx.dialogos;
    Recordset pares;
    Conexion &conexion = r.internos().GetAssemblyConnection();
    conexion.Sql = "select distinct ncm,sufijos from subitems where interno = "_L1 + r.clave();
    conexion.crearrs(pares);
    const int total = pares.RecordCount();
    const auto barra = [&](int valor) {
        dialogos.avance({Avance::Tipo::Barra, 0, u"pbSUF"_s, valor, total, {}});
    };
    barra(0);

    // An operation holds many suffix texts of few positions: each position is read once.
    QStringList posiciones;
    for (; !pares.Eof(); pares.MoveNext()) posiciones << pares.Texto(u"ncm");
    posiciones.removeDuplicates();
    const QHash<QString, RequisitosDeSufijo> requisitos = SuffixCheckerClass(r.ctx).Requisitos(posiciones);
    QString informe;
    pares.MoveFirst();
    for (int n = 0; !pares.Eof(); pares.MoveNext(), ++n) {
        const QString posicion = pares.Texto(u"ncm");
        const QString sufijos = pares.Texto(u"sufijos");
        const int respuesta = SuffixCheckerClass::Cumple(requisitos.value(posicion), sufijos);
        if (respuesta != 0) {
            if (informe.isEmpty()) informe = cabezaDelInforme();
            informe += posicion.rightJustified(anchoDePosicion) + QString(sangriaDelSufijo, ' '_L1) +
                       " - "_L1 + sufijos + "\r\n"_L1 + palabraDelError(respuesta) + "\r\n\r\n"_L1;
        }
        dialogos.avance({Avance::Tipo::Etiqueta, 0, u"Label8"_s, 0, 100,
                         u"Revalidando %1 de %2 Sufijos"_s.arg(n).arg(total)});
        barra(n + 1);
        dialogos.atenderEventos();
    }
    if (informe.isEmpty()) return Fase::Sigue;
    dialogos.informe({{}, informe, false});
    r.ctx.ChequeoArmado = u"No"_s;
    return Fase::Corta;
}
