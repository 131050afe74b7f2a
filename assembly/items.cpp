#include <array>

#include "assembly/run.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

constexpr int maximoDeGrupos = 300;

QString redondeado(const ContextoArmado &r, const char *columna) {
    return SqlRound(r.ctx, u"INTERNOS"_s, QString(L(columna)), u"00.00");
}

/// "and column is null " or "and column = 'value' ", as the row has it.
QString clausula(const Recordset &fila, const char *columna) {
    const QString nombre = QString(L(columna));
    if (fila.EsNulo(nombre)) return "and "_L1 + nombre + " is null "_L1;
    return "and "_L1 + nombre + " = '"_L1 + fila.Texto(nombre) + "' "_L1;
}

/// The description is free text: doubled, and compared without its end blanks.
enum class Puntas { Recortadas, ComoEstan };
QString clausulaDeDescripcion(const Recordset &fila, Puntas puntas) {
    const QString columna = u"Descripcion"_s;
    if (fila.EsNulo(columna)) return "and "_L1 + columna + " is null "_L1;
    const QString texto = fila.Texto(columna);
    return "and "_L1 + columna + " = '"_L1 +
           DoblarComillas(puntas == Puntas::Recortadas ? texto.trimmed() : texto) + "' "_L1;
}

/// What splits and numbering by appearance share: the key of the row's item.
template <std::size_t N>
QString claveDe(const ContextoArmado &r, const Recordset &fila, const std::array<const char *, N> &columnas,
                Puntas puntas) {
    QString texto = "where interno = '"_L1 + r.interno + "' and ncm = '"_L1 + fila.Texto(u"ncm") +
                    "' and idunidad = '"_L1 + fila.Texto(u"idunidad") + "' "_L1;
    if (r.esDJAI()) texto += clausulaDeDescripcion(fila, puntas);
    for (const char *columna : columnas) texto += clausula(fila, columna);
    return texto;
}

constexpr std::array<const char *, 8> clavesDePartes{"idpais",    "idpaisproc",    "itfiller",  "estadomerc",
                                                     "biendeuso", "cancelaciones", "codigoean", "tipoitem"};
constexpr std::array<const char *, 8> clavesDeAparicion{"idpais",         "idpaisproc", "itfiller",
                                                        "estadomerc",     "biendeuso",  "cancelaciones",
                                                        "ONCCACategoria", "ONCCACortes"};

/// One item out of its key columns (`clave`) and its sums (`sumas`).
void insertarItem(ContextoArmado &r, const Recordset &clave, const Recordset &sumas, qint64 n) {
    const auto texto = [&clave](QStringView columna) {
        return QLatin1Char('\'') + clave.Texto(columna) + QLatin1Char('\'');
    };
    const auto numero = [&r, &sumas](QStringView columna) { return SqlNumber(r.ctx, sumas.Numero(columna)); };
    const QStringList valores{
        QLatin1Char('\'') + r.interno + QLatin1Char('\''),
        texto(u"NCM"),
        r.esDJAI() ? QLatin1Char('\'') + DoblarComillas(clave.Texto(u"Descripcion")) + QLatin1Char('\'')
                   : u"''"_s,
        texto(u"Idpais"),
        texto(u"idpaisproc"),
        texto(u"idunidad"),
        texto(u"estadomerc"),
        texto(u"Biendeuso"),
        texto(u"estadistica"),
        numero(u"valrel"),
        texto(u"deresp"),
        numero(u"valder"),
        QString::number(n),
        numero(u"Cant"),
        numero(u"rkgneto"),
        numero(u"FobTotal"),
        numero(u"rkgbruto"),
        texto(u"LAPI"),
        texto(u"itfiller"),
        numero(u"tinsumostemp"),
        numero(u"tinsumosacons"),
        texto(u"cancelaciones"),
        texto(u"tipoitem"),
        texto(u"ONCCACategoria"),
        texto(u"ONCCACortes"),
        numero(u"tajusteincluir"),
        numero(u"tajustededucir")};
    r.ejecutar(
        "insert into item "
        "(interno,ncm,descripcion,idpais,idproc,idunidad,estadomerc,biendeuso,estadistica,"
        "valorrelacionestadistica,deresp,valorderesp,id,"
        "cantidad,totalkneto,fobtotal,totalkbruto,lapi,itfiller,insumostemp,insumosacons,"
        "cancelaciones,tipoitem,ONCCACategoria,ONCCACortes, ajusteinc, "
        "ajusteded) values ("_L1 +
        valores.join(QLatin1Char(',')) + ")"_L1);
    r.ctx.dialogos.atenderEventos();
}

void numerarPorAparicion(ContextoArmado &r) {
    qint64 n = 0;
    Recordset primero;
    while (r.consultar("select top 1 * from groupsubitems where interno = '"_L1 + r.interno +
                           "' and id is null order by idsub"_L1,
                       primero)) {
        ++n;
        const auto numerar = [&](Puntas puntas) {
            return r.ejecutar("update groupsubitems set id = "_L1 + QString::number(n) + " "_L1 +
                              claveDe(r, primero, clavesDeAparicion, puntas));
        };
        // The store keeps end blanks apart: a description that has them is met as it stands. A group that no
        // key meets would come first for ever, so it ends the run.
        if (numerar(Puntas::Recortadas) == 0 && numerar(Puntas::ComoEstan) == 0)
            throw Falla{0,
                        u"INTERNOS"_s,
                        u"No se pudo numerar el grupo de la posición '%1': revise el subitem %2."_s.arg(
                            primero.Texto(u"ncm"), primero.Texto(u"idsub")),
                        {}};
        Recordset sumas;
        r.consultar(
            "select sum("_L1 + redondeado(r, "valorrelacionestadistica") + ") as valrel, sum("_L1 +
                redondeado(r, "valorderesp") +
                ") as valder, sum(cantidad) as cant, sum(FOB) as fobtotal, sum("_L1 +
                redondeado(r, "kgneto") +
                ") as rkgneto, sum(kgbruto) As rkgbruto, sum(insumostemp) As tinsumostemp, "
                "sum(insumosacons) As tinsumosacons, sum(ajusteincluir) As "
                "tajusteincluir, sum(ajustededucir) As tajustededucir from groupsubitems where id = "_L1 +
                QString::number(n) + " and interno = '"_L1 + r.interno + "'"_L1,
            sumas);
        insertarItem(r, primero, sumas, n);
    }
}

void numerarPorNcm(ContextoArmado &r) {
    const L descripcion = r.esDJAI() ? "descripcion,"_L1 : ""_L1;
    qint64 n = 1;
    Recordset rs;
    for (r.consultar("select interno,ncm,"_L1 + descripcion +
                         "estadistica,idpais,idpaisproc,idunidad,estadomerc,biendeuso,sum("_L1 +
                         redondeado(r, "valorrelacionestadistica") + ") as valrel,deresp,sum("_L1 +
                         redondeado(r, "valorderesp") +
                         ") as valder,sum(cantidad) as cant,lapi,sum(FOB) as fobtotal, sum("_L1 +
                         redondeado(r, "kgneto") +
                         ") as rkgneto, sum(kgbruto) as rkgbruto,itfiller,sum(insumostemp) as "
                         "tinsumostemp, sum(insumosacons) as tinsumosacons,cancelaciones, "
                         "tipoitem,ONCCACategoria,ONCCACortes, sum(ajusteincluir) as "
                         "tajusteincluir,sum(ajustededucir) as tajustededucir  from groupsubitems where "
                         "interno = '"_L1 +
                         r.interno + "' group by interno,ncm,"_L1 + descripcion +
                         "estadistica,idpais,idpaisproc,idunidad,estadomerc,deresp,biendeuso,lapi,itfiller,"
                         "cancelaciones,tipoitem,ONCCACategoria,ONCCACortes order "
                         "by tipoitem desc, ncm, itfiller"_L1,
                     rs);
         !rs.Eof(); rs.MoveNext()) {
        insertarItem(r, rs, rs, n);
        if (!r.DATOCOMPRADOR.isEmpty())
            AgregarInformacionAdicional(r, n, u"DATO-COMPRADOR"_s, r.DATOCOMPRADOR);
        ++n;
    }
}

/// Gives each group the number of its item; numbering by appearance has done so already.
void enlazarGrupos(ContextoArmado &r) {
    const QString comparaciones =
        "(groupsubitems.interno = item.Interno and groupsubitems.ncm = item.NCM and "_L1 +
        (r.esDJAI()
             ? "(groupsubitems.descripcion = item.descripcion or groupsubitems.descripcion is null) and "_L1
             : ""_L1) +
        "(groupsubitems.idpais = item.Idpais or groupsubitems.idpais is null) and "
        "(groupsubitems.idpaisproc = item.Idproc or groupsubitems.idpaisproc is null) and "
        "groupsubitems.idunidad = item.idunidad and (groupsubitems.itfiller = item.itfiller or "
        "groupsubitems.itfiller is null) and (groupsubitems.estadomerc = "
        "item.estadomerc or groupsubitems.estadomerc is null) and groupsubitems.biendeuso = item.Biendeuso "
        "and groupsubitems.cancelaciones = item.cancelaciones and "
        "groupsubitems.tipoitem = item.tipoitem)"_L1;
    const QString where = " where groupsubitems.interno = '"_L1 + r.interno + "'"_L1;
    const qint64 tocados = r.esSQL()
                               ? r.ejecutar(
                                     "Update groupsubitems Set groupsubitems.ID = ITEM.ID from "
                                     "groupsubitems INNER JOIN item on "_L1 +
                                     comparaciones + where)
                               : r.ejecutar("Update groupsubitems Inner Join item On "_L1 + comparaciones +
                                            " Set groupsubitems.ID = ITEM.ID"_L1 + where);
    if (tocados == 0) r.ctx.dialogos.critico(u"Error en Agrupar Subitems"_s);
}

}  // namespace

void ControlarKiloBruto(ContextoArmado &r) {
    const auto contar = [&r](const char *prueba) {
        Recordset rs;
        r.consultar("select count(*) as cant from groupsubitems where interno = '"_L1 + r.interno +
                        "' and "_L1 + L(prueba),
                    rs);
        return rs.Numero(u"cant");
    };
    const bool con = contar("kgbruto > 0") > 0;
    const bool sin = contar("kgbruto = 0") > 0;
    if (con && !sin) {
        Recordset rs;
        r.consultar(
            "select sum(kgbruto) as total from groupsubitems where interno = '"_L1 + r.interno + "'"_L1, rs);
        r.ejecutar("update caratula set BULPES= "_L1 + SqlNumber(r.ctx, rs.Numero(u"Total")) +
                   " where interno = '"_L1 + r.interno + "'"_L1);
    } else if (!con && sin) {
        r.ejecutar("update caratula set BULPES = 0 where interno = '"_L1 + r.interno + "'"_L1);
    } else {
        r.ctx.dialogos.informar(
            u"Hay Subitem's que no tiene ingresado el KG Bruto.\r\n\r\nPor "
            "favor verifique los mismos en la opcion CARGA DE SUBITEMS"_s,
            u"KG BRUTOS (BULTOS)"_s);
    }
}

void DividirItemsGrandes(ContextoArmado &r) {
    const L descripcion = r.esDJAI() ? "descripcion,"_L1 : ""_L1;
    Recordset grandes;
    for (r.consultar("select count(*),interno,ncm,estadistica,"_L1 + descripcion +
                         "idpais,idpaisproc,idunidad,estadomerc,biendeuso,sum(valorrelacionestadistica) as "
                         "valrel,deresp,sum(valorderesp) as valder,sum(cantidad) as "
                         "cant,lapi,sum(FOB) as fobtotal, sum(kgneto) as rkgneto, sum(kgbruto) as "
                         "rkgbruto,itfiller,cancelaciones,codigoean,tipoitem From "
                         "groupsubitems where interno = '"_L1 +
                         r.interno + "' group by interno,ncm,estadistica,"_L1 + descripcion +
                         "idpais,idpaisproc,idunidad,estadomerc,deresp,biendeuso,lapi,itfiller,"
                         "cancelaciones,codigoean,tipoitem having count(*)>300"_L1,
                     grandes);
         !grandes.Eof(); grandes.MoveNext()) {
        Recordset grupos;
        const auto abrir = [&](Puntas puntas) {
            r.internos().Sql =
                "select * from groupsubitems "_L1 + claveDe(r, grandes, clavesDePartes, puntas);
            return r.internos().crearrsActualizable(grupos, u"groupsubitems"_s);
        };
        int contador = 1;
        int parte = 1;
        if (!abrir(Puntas::Recortadas)) abrir(Puntas::ComoEstan);
        for (; !grupos.Eof(); grupos.MoveNext()) {
            if (contador > maximoDeGrupos) {
                contador = 1;
                ++parte;
            }
            grupos.Poner(u"itfiller", grupos.Texto(u"itfiller") + QString::number(parte));
            grupos.Update();
            ++contador;
        }
    }
}

void GenerarItems(ContextoArmado &r) {
    if (r.opciones.ARMARITEM == 1) {
        numerarPorNcm(r);
        enlazarGrupos(r);
    } else {
        numerarPorAparicion(r);
    }
}

void AgregarItemCero(ContextoArmado &r) {
    const QString interno = QLatin1Char('\'') + r.interno + QLatin1Char('\'');
    r.ejecutar("INSERT INTO item (id,interno,totalkneto) values (0,"_L1 + interno + ",0)"_L1);
    const auto enTodos = [&](const char *columna, const QString &valor) {
        r.ejecutar("update item set "_L1 + L(columna) + " = '"_L1 + valor + "' where interno = "_L1 +
                   interno);
    };
    const auto enCero = [&](const char *columna, const QString &valor) {
        r.ejecutar("update item set "_L1 + L(columna) + " = '"_L1 + valor + "' where id=0 and interno = "_L1 +
                   interno);
    };
    if (!r.DCPaisDestino.isEmpty())
        r.ejecutar("update item set idproc = '"_L1 + r.DCPaisDestino + "' where interno = "_L1 + interno +
                   " and (idproc = '' or idproc is null)"_L1);
    if (!r.DCStandard.isEmpty()) enTodos("standard", r.DCStandard);
    if (!r.DCRegalias.isEmpty()) enTodos("regalias", r.DCRegalias);
    if (!r.DCEstMerc.isEmpty() && r.DCForzarEstMerc) enCero("EstadoMerc", r.DCEstMerc);
    if (!r.DCPaisOrigen.isEmpty() && r.DCForzarPaisOrigen) enCero("IdPais", r.DCPaisOrigen);
    // All eight hang on the agreement alone.
    if (!r.ONCCAAcuerdo.isEmpty()) {
        enTodos("ONCCAAcuerdo", r.ONCCAAcuerdo);
        enTodos("ONCCAElaborador", r.ONCCAElaborador);
        enTodos("ONCCAEspecie", r.ONCCAEspecie);
        enTodos("ONCCAFaneador", r.ONCCAFaneador);
        enTodos("ONCCAMatadero", r.ONCCAMatadero);
        enTodos("ONCCAMeccoorgbio", r.ONCCAMeccoorgbio);
        enTodos("ONCCARes3106", r.ONCCARes3106);
        enTodos("ONCCASisPro", r.ONCCASisPro);
    }
    if (!r.OpcionesIVA.isEmpty()) enTodos("OpcionesIVA", r.OpcionesIVA);
    if (!r.OpcionesGanancias.isEmpty()) enTodos("OpcionesGanancias", r.OpcionesGanancias);
    if (r.descripcionForzada) {
        const QString descripcion = DoblarComillas(r.DC_DJAI_DescripcionMercaderia);
        enTodos("descripcion", descripcion);
        r.ejecutar("update groupsubitems set descripcion = '"_L1 + descripcion + "' where interno = "_L1 +
                   interno);
    }
    struct Lista {
        const char *prueba;
        const char *lista;
    };
    // The last four test equality: a split item of those lists carries a digit behind the marker and does not
    // map.
    static constexpr std::array<Lista, 7> listas{{{"left(itfiller,9) = 'LISTA:314'", "314/R.AUTOMOTRIZ"},
                                                  {"left(itfiller,14) = 'LISTA:MERCOSUR'", "MERCOSUR"},
                                                  {"left(itfiller,11) = 'LISTA:904/1'", "904/1"},
                                                  {"itfiller = 'LISTA:306'", "306"},
                                                  {"itfiller = 'LISTA:355'", "355"},
                                                  {"itfiller = 'LISTA:357'", "357"},
                                                  {"itfiller = 'LISTA:359/3'", "359/3"}}};
    for (const Lista &l : listas)
        r.ejecutar("update item set LISTA = '"_L1 + L(l.lista) + "' where interno = "_L1 + interno +
                   " and "_L1 + L(l.prueba));
}

void ControlarTiposGD(ContextoArmado &r) {
    Recordset rs;
    if (!r.consultar("select id from item where interno = '"_L1 + r.interno + "' and tipoitem = 'G'"_L1, rs))
        return;
    const QString noSe = u"\r\n\r\nNo se establecio el ITEM RELACIONADO!"_s;
    if (rs.RecordCount() > 1) {
        r.ctx.dialogos.advertir(
            u"ADVERTENCIA!: Hay mas de 1 item tipo G, solo puede haber uno y ser el primer item"_s + noSe);
    } else if (rs.Numero(u"ID") == 1) {
        r.ejecutar("Update item set itemasociado = '001' where interno = '"_L1 + r.interno +
                   "' and tipoitem='D'"_L1);
        r.ctx.dialogos.informar(u"Se establecio como ITEM RELACIONADO el 001 en todos los items tipo D"_s);
    } else {
        r.ctx.dialogos.advertir(u"ADVERTENCIA!: El Item tipo G debe ser el primer item"_s + noSe);
    }
}

void AgregarInformacionAdicional(ContextoArmado &r, qint64 iditem, const QString &idinfo,
                                 const QString &valor) {
    QString limpio = valor;
    limpio.replace(QLatin1Char('\''), QLatin1Char(' '));
    r.ejecutar("insert into ITEMINFO (INTERNO, IDITEM, IDINFO, VALOR) values ('"_L1 + r.interno + "',"_L1 +
               QString::number(iditem) + ",'"_L1 + idinfo + "','"_L1 + limpio + "')"_L1);
}
