#include <array>

#include "assembly/run.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;

constexpr int maximoDeGrupos = 300;

QString redondeado(const char *columna) {
    return SqlRound(QStringLiteral("INTERNOS"), QString(L(columna)), u"00.00");
}

/// "and column is null " or "and column = 'value' ", as the row has it.
QString clausula(const Recordset &fila, const char *columna) {
    const QString nombre = QString(L(columna));
    if (fila.EsNulo(nombre)) return L("and ") + nombre + L(" is null ");
    return L("and ") + nombre + L(" = '") + fila.Texto(nombre) + L("' ");
}

/// The description is free text: doubled, and compared without its end blanks.
enum class Puntas { Recortadas, ComoEstan };
QString clausulaDeDescripcion(const Recordset &fila, Puntas puntas) {
    const QString columna = QStringLiteral("Descripcion");
    if (fila.EsNulo(columna)) return L("and ") + columna + L(" is null ");
    const QString texto = fila.Texto(columna);
    return L("and ") + columna + L(" = '") +
           DoblarComillas(puntas == Puntas::Recortadas ? texto.trimmed() : texto) + L("' ");
}

/// What splits and numbering by appearance share: the key of the row's item.
template <std::size_t N>
QString claveDe(const ContextoArmado &r, const Recordset &fila, const std::array<const char *, N> &columnas,
                Puntas puntas) {
    QString texto = L("where interno = '") + r.interno + L("' and ncm = '") + fila.Texto(u"ncm") +
                    L("' and idunidad = '") + fila.Texto(u"idunidad") + L("' ");
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
    const auto numero = [&sumas](QStringView columna) { return SqlNumber(sumas.Numero(columna)); };
    const QStringList valores{
        QLatin1Char('\'') + r.interno + QLatin1Char('\''),
        texto(u"NCM"),
        r.esDJAI() ? QLatin1Char('\'') + DoblarComillas(clave.Texto(u"Descripcion")) + QLatin1Char('\'')
                   : QStringLiteral("''"),
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
    r.ejecutar(L("insert into item "
                 "(interno,ncm,descripcion,idpais,idproc,idunidad,estadomerc,biendeuso,estadistica,"
                 "valorrelacionestadistica,deresp,valorderesp,id,"
                 "cantidad,totalkneto,fobtotal,totalkbruto,lapi,itfiller,insumostemp,insumosacons,"
                 "cancelaciones,tipoitem,ONCCACategoria,ONCCACortes, ajusteinc, "
                 "ajusteded) values (") +
               valores.join(QLatin1Char(',')) + L(")"));
    r.ctx.dialogos.atenderEventos();
}

void numerarPorAparicion(ContextoArmado &r) {
    qint64 n = 0;
    Recordset primero;
    while (r.consultar(L("select top 1 * from groupsubitems where interno = '") + r.interno +
                           L("' and id is null order by idsub"),
                       primero)) {
        ++n;
        const auto numerar = [&](Puntas puntas) {
            return r.ejecutar(L("update groupsubitems set id = ") + QString::number(n) + L(" ") +
                              claveDe(r, primero, clavesDeAparicion, puntas));
        };
        // The store keeps end blanks apart: a description that has them is met as it stands. A group that no
        // key meets would come first for ever, so it ends the run.
        if (numerar(Puntas::Recortadas) == 0 && numerar(Puntas::ComoEstan) == 0)
            throw ErrorDeStore{
                0,
                QStringLiteral("INTERNOS"),
                QStringLiteral("No se pudo numerar el grupo de la posición '%1': revise el subitem %2.")
                    .arg(primero.Texto(u"ncm"), primero.Texto(u"idsub")),
                {}};
        Recordset sumas;
        r.consultar(
            L("select sum(") + redondeado("valorrelacionestadistica") + L(") as valrel, sum(") +
                redondeado("valorderesp") +
                L(") as valder, sum(cantidad) as cant, sum(FOB) as fobtotal, sum(") + redondeado("kgneto") +
                L(") as rkgneto, sum(kgbruto) As rkgbruto, sum(insumostemp) As tinsumostemp, "
                  "sum(insumosacons) As tinsumosacons, sum(ajusteincluir) As "
                  "tajusteincluir, sum(ajustededucir) As tajustededucir from groupsubitems where id = ") +
                QString::number(n) + L(" and interno = '") + r.interno + L("'"),
            sumas);
        insertarItem(r, primero, sumas, n);
    }
}

void numerarPorNcm(ContextoArmado &r) {
    const L descripcion = r.esDJAI() ? L("descripcion,") : L("");
    qint64 n = 1;
    Recordset rs;
    for (r.consultar(L("select interno,ncm,") + descripcion +
                         L("estadistica,idpais,idpaisproc,idunidad,estadomerc,biendeuso,sum(") +
                         redondeado("valorrelacionestadistica") + L(") as valrel,deresp,sum(") +
                         redondeado("valorderesp") +
                         L(") as valder,sum(cantidad) as cant,lapi,sum(FOB) as fobtotal, sum(") +
                         redondeado("kgneto") +
                         L(") as rkgneto, sum(kgbruto) as rkgbruto,itfiller,sum(insumostemp) as "
                           "tinsumostemp, sum(insumosacons) as tinsumosacons,cancelaciones, "
                           "tipoitem,ONCCACategoria,ONCCACortes, sum(ajusteincluir) as "
                           "tajusteincluir,sum(ajustededucir) as tajustededucir  from groupsubitems where "
                           "interno = '") +
                         r.interno + L("' group by interno,ncm,") + descripcion +
                         L("estadistica,idpais,idpaisproc,idunidad,estadomerc,deresp,biendeuso,lapi,itfiller,"
                           "cancelaciones,tipoitem,ONCCACategoria,ONCCACortes order "
                           "by tipoitem desc, ncm, itfiller"),
                     rs);
         !rs.Eof(); rs.MoveNext()) {
        insertarItem(r, rs, rs, n);
        if (!r.DATOCOMPRADOR.isEmpty())
            AgregarInformacionAdicional(r, n, QStringLiteral("DATO-COMPRADOR"), r.DATOCOMPRADOR);
        ++n;
    }
}

/// Gives each group the number of its item; numbering by appearance has done so already.
void enlazarGrupos(ContextoArmado &r) {
    const QString comparaciones =
        L("(groupsubitems.interno = item.Interno and groupsubitems.ncm = item.NCM and ") +
        (r.esDJAI()
             ? L("(groupsubitems.descripcion = item.descripcion or groupsubitems.descripcion is null) and ")
             : L("")) +
        L("(groupsubitems.idpais = item.Idpais or groupsubitems.idpais is null) and "
          "(groupsubitems.idpaisproc = item.Idproc or groupsubitems.idpaisproc is null) and "
          "groupsubitems.idunidad = item.idunidad and (groupsubitems.itfiller = item.itfiller or "
          "groupsubitems.itfiller is null) and (groupsubitems.estadomerc = "
          "item.estadomerc or groupsubitems.estadomerc is null) and groupsubitems.biendeuso = item.Biendeuso "
          "and groupsubitems.cancelaciones = item.cancelaciones and "
          "groupsubitems.tipoitem = item.tipoitem)");
    const QString where = L(" where groupsubitems.interno = '") + r.interno + L("'");
    const qint64 tocados = r.esSQL()
                               ? r.ejecutar(L("Update groupsubitems Set groupsubitems.ID = ITEM.ID from "
                                              "groupsubitems INNER JOIN item on ") +
                                            comparaciones + where)
                               : r.ejecutar(L("Update groupsubitems Inner Join item On ") + comparaciones +
                                            L(" Set groupsubitems.ID = ITEM.ID") + where);
    if (tocados == 0) r.ctx.dialogos.critico(QStringLiteral("Error en Agrupar Subitems"));
}

}  // namespace

void ControlarKiloBruto(ContextoArmado &r) {
    const auto contar = [&r](const char *prueba) {
        Recordset rs;
        r.consultar(L("select count(*) as cant from groupsubitems where interno = '") + r.interno +
                        L("' and ") + L(prueba),
                    rs);
        return rs.Numero(u"cant");
    };
    const bool con = contar("kgbruto > 0") > 0;
    const bool sin = contar("kgbruto = 0") > 0;
    if (con && !sin) {
        Recordset rs;
        r.consultar(
            L("select sum(kgbruto) as total from groupsubitems where interno = '") + r.interno + L("'"), rs);
        r.ejecutar(L("update caratula set BULPES= ") + SqlNumber(rs.Numero(u"Total")) +
                   L(" where interno = '") + r.interno + L("'"));
    } else if (!con && sin) {
        r.ejecutar(L("update caratula set BULPES = 0 where interno = '") + r.interno + L("'"));
    } else {
        r.ctx.dialogos.informar(QStringLiteral("Hay Subitem's que no tiene ingresado el KG Bruto.\r\n\r\nPor "
                                               "favor verifique los mismos en la opcion CARGA DE SUBITEMS"),
                                QStringLiteral("KG BRUTOS (BULTOS)"));
    }
}

void DividirItemsGrandes(ContextoArmado &r) {
    const L descripcion = r.esDJAI() ? L("descripcion,") : L("");
    Recordset grandes;
    for (r.consultar(L("select count(*),interno,ncm,estadistica,") + descripcion +
                         L("idpais,idpaisproc,idunidad,estadomerc,biendeuso,sum(valorrelacionestadistica) as "
                           "valrel,deresp,sum(valorderesp) as valder,sum(cantidad) as "
                           "cant,lapi,sum(FOB) as fobtotal, sum(kgneto) as rkgneto, sum(kgbruto) as "
                           "rkgbruto,itfiller,cancelaciones,codigoean,tipoitem From "
                           "groupsubitems where interno = '") +
                         r.interno + L("' group by interno,ncm,estadistica,") + descripcion +
                         L("idpais,idpaisproc,idunidad,estadomerc,deresp,biendeuso,lapi,itfiller,"
                           "cancelaciones,codigoean,tipoitem having count(*)>300"),
                     grandes);
         !grandes.Eof(); grandes.MoveNext()) {
        Recordset grupos;
        const auto abrir = [&](Puntas puntas) {
            r.internos().Sql =
                L("select * from groupsubitems ") + claveDe(r, grandes, clavesDePartes, puntas);
            return r.internos().crearrsActualizable(grupos, QStringLiteral("groupsubitems"));
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
    r.ejecutar(L("INSERT INTO item (id,interno,totalkneto) values (0,") + interno + L(",0)"));
    const auto enTodos = [&](const char *columna, const QString &valor) {
        r.ejecutar(L("update item set ") + L(columna) + L(" = '") + valor + L("' where interno = ") +
                   interno);
    };
    const auto enCero = [&](const char *columna, const QString &valor) {
        r.ejecutar(L("update item set ") + L(columna) + L(" = '") + valor + L("' where id=0 and interno = ") +
                   interno);
    };
    if (!r.DCPaisDestino.isEmpty())
        r.ejecutar(L("update item set idproc = '") + r.DCPaisDestino + L("' where interno = ") + interno +
                   L(" and (idproc = '' or idproc is null)"));
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
        r.ejecutar(L("update groupsubitems set descripcion = '") + descripcion + L("' where interno = ") +
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
        r.ejecutar(L("update item set LISTA = '") + L(l.lista) + L("' where interno = ") + interno +
                   L(" and ") + L(l.prueba));
}

void ControlarTiposGD(ContextoArmado &r) {
    Recordset rs;
    if (!r.consultar(L("select id from item where interno = '") + r.interno + L("' and tipoitem = 'G'"), rs))
        return;
    const QString noSe = QStringLiteral("\r\n\r\nNo se establecio el ITEM RELACIONADO!");
    if (rs.RecordCount() > 1) {
        r.ctx.dialogos.advertir(
            QStringLiteral(
                "ADVERTENCIA!: Hay mas de 1 item tipo G, solo puede haber uno y ser el primer item") +
            noSe);
    } else if (rs.Numero(u"ID") == 1) {
        r.ejecutar(L("Update item set itemasociado = '001' where interno = '") + r.interno +
                   L("' and tipoitem='D'"));
        r.ctx.dialogos.informar(
            QStringLiteral("Se establecio como ITEM RELACIONADO el 001 en todos los items tipo D"));
    } else {
        r.ctx.dialogos.advertir(QStringLiteral("ADVERTENCIA!: El Item tipo G debe ser el primer item") +
                                noSe);
    }
}

void AgregarInformacionAdicional(ContextoArmado &r, qint64 iditem, const QString &idinfo,
                                 const QString &valor) {
    QString limpio = valor;
    limpio.replace(QLatin1Char('\''), QLatin1Char(' '));
    r.ejecutar(L("insert into ITEMINFO (INTERNO, IDITEM, IDINFO, VALOR) values ('") + r.interno + L("',") +
               QString::number(iditem) + L(",'") + idinfo + L("','") + limpio + L("')"));
}
