// Groups that agree on the key of an item become one item; each group keeps its own suffixes and price.

#include <array>

#include "assembly/phases.h"
#include "frame/base/values.h"
#include "frame/escritura.h"
#include "frame/sqltext.h"
#include "frame/transaction.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1StringView;

constexpr int maximoDeGrupos = 300;

QString redondeado(const ContextoArmado &r, const QString &columna) {
    return SqlRound(r.ctx, u"INTERNOS"_s, columna, u"00.00");
}

/// "and column is null " or "and column = 'value' ", as the row has it.
QString clausula(const Recordset &fila, L columna) {
    const QString nombre = columna;
    if (fila.EsNulo(nombre)) return u"and %1 is null "_s.arg(nombre);
    return u"and %1 = %2 "_s.arg(nombre, TextoEnComillas(fila.Texto(nombre)));
}

/// The description is free text: doubled, and compared without its end blanks.
enum class Puntas { Recortadas, ComoEstan };
QString clausulaDeDescripcion(const Recordset &fila, Puntas puntas) {
    if (fila.EsNulo(u"Descripcion")) return u"and Descripcion is null "_s;
    const QString texto = fila.Texto(u"Descripcion");
    return u"and Descripcion = %1 "_s.arg(
        TextoEnComillas(puntas == Puntas::Recortadas ? texto.trimmed() : texto));
}

/// What splits and numbering by appearance share: the key of the row's item.
template <std::size_t N>
QString claveDe(const ContextoArmado &r, const Recordset &fila, const std::array<L, N> &columnas,
                Puntas puntas) {
    QString texto = u"where interno = %1 and ncm = %2 and idunidad = %3 "_s.arg(
        r.clave(), EnComillas(fila.Texto(u"ncm")), EnComillas(fila.Texto(u"idunidad")));
    if (r.esDJAI()) texto += clausulaDeDescripcion(fila, puntas);
    for (const L columna : columnas) texto += clausula(fila, columna);
    return texto;
}

constexpr std::array<L, 8> clavesDePartes{
    "idpais"_L1,    "idpaisproc"_L1,    "itfiller"_L1,  "estadomerc"_L1,
    "biendeuso"_L1, "cancelaciones"_L1, "codigoean"_L1, "tipoitem"_L1,
};
constexpr std::array<L, 8> clavesDeAparicion{
    "idpais"_L1,    "idpaisproc"_L1,    "itfiller"_L1,       "estadomerc"_L1,
    "biendeuso"_L1, "cancelaciones"_L1, "ONCCACategoria"_L1, "ONCCACortes"_L1,
};

/// One item out of its key columns (`clave`) and its sums (`sumas`).
void insertarItem(ContextoArmado &r, const Recordset &clave, const Recordset &sumas, qint64 n) {
    Escritura item(r.ctx);
    item.codigo("interno", r.interno)
        .codigo("ncm", clave.Texto(u"NCM"))
        .texto("descripcion", r.esDJAI() ? clave.Texto(u"Descripcion") : QString())
        .codigo("idpais", clave.Texto(u"Idpais"))
        .codigo("idproc", clave.Texto(u"idpaisproc"))
        .codigo("idunidad", clave.Texto(u"idunidad"))
        .codigo("estadomerc", clave.Texto(u"estadomerc"))
        .codigo("biendeuso", clave.Texto(u"Biendeuso"))
        .codigo("estadistica", clave.Texto(u"estadistica"))
        .numero("valorrelacionestadistica", sumas.Numero(u"valrel"))
        .codigo("deresp", clave.Texto(u"deresp"))
        .numero("valorderesp", sumas.Numero(u"valder"))
        .crudo("id", QString::number(n))
        .numero("cantidad", sumas.Numero(u"Cant"))
        .numero("totalkneto", sumas.Numero(u"rkgneto"))
        .numero("fobtotal", sumas.Numero(u"FobTotal"))
        .numero("totalkbruto", sumas.Numero(u"rkgbruto"))
        .codigo("lapi", clave.Texto(u"LAPI"))
        .codigo("itfiller", clave.Texto(u"itfiller"))
        .numero("insumostemp", sumas.Numero(u"tinsumostemp"))
        .numero("insumosacons", sumas.Numero(u"tinsumosacons"))
        .codigo("cancelaciones", clave.Texto(u"cancelaciones"))
        .codigo("tipoitem", clave.Texto(u"tipoitem"))
        .texto("ONCCACategoria", clave.Texto(u"ONCCACategoria"))
        .texto("ONCCACortes", clave.Texto(u"ONCCACortes"))
        // The blanks belong to the statement as it is sent.
        .numero(" ajusteinc", sumas.Numero(u"tajusteincluir"))
        .numero(" ajusteded", sumas.Numero(u"tajustededucir"));
    r.mandar(item.insertar(u"item"_s));
    r.ctx.dialogos.atenderEventos();
}

QString sumasDelItem(const ContextoArmado &r, qint64 n) {
    return u"select sum(%1) as valrel, sum(%2) as valder, sum(cantidad) as cant, sum(FOB) as fobtotal, "
           "sum(%3) as rkgneto, sum(kgbruto) As rkgbruto, "
           "sum(insumostemp) As tinsumostemp, sum(insumosacons) As tinsumosacons, "
           "sum(ajusteincluir) As tajusteincluir, sum(ajustededucir) As tajustededucir "
           "from groupsubitems "
           "where id = %4 and interno = %5"_s.arg(redondeado(r, u"valorrelacionestadistica"_s),
                                                  redondeado(r, u"valorderesp"_s), redondeado(r, u"kgneto"_s),
                                                  QString::number(n), r.clave());
}

bool mismaFila(const Recordset &a, const Recordset &b) {
    if (a.Eof() || b.Eof()) return false;
    for (int c = 0; c < a.columnas(); ++c)
        if (a.Fields(c).Value != b.Fields(c).Value) return false;
    return true;
}

QString primerGrupoSinItem(const ContextoArmado &r) {
    return u"select top 1 * from groupsubitems "
           "where interno = %1 and id is null order by idsub"_s.arg(r.clave());
}

QString numerar(qint64 n, const QString &clave) {
    return u"update groupsubitems set id = %1 %2"_s.arg(QString::number(n), clave);
}

/// Each item's sums and the first group of the next travel with the update that they follow.
void numerarUnoPorUno(ContextoArmado &r) {
    qint64 n = 0;
    Recordset primero;
    for (r.consultar(primerGrupoSinItem(r), primero); !primero.Eof();) {
        ++n;
        Recordset sumas;
        Recordset despues;
        // False when no group was met: this one comes first again then.
        const auto alcanza = [&](Puntas puntas) {
            r.mandar(numerar(n, claveDe(r, primero, clavesDeAparicion, puntas)));
            r.internos().Anticipar({sumasDelItem(r, n), primerGrupoSinItem(r)});
            r.consultar(sumasDelItem(r, n), sumas);
            r.consultar(primerGrupoSinItem(r), despues);
            return !mismaFila(primero, despues);
        };
        // The store keeps end blanks apart: a description that has them is met as it stands. A group that no
        // key meets would come first for ever, so it ends the run.
        if (!alcanza(Puntas::Recortadas) && !alcanza(Puntas::ComoEstan))
            throw Falla{0,
                        u"INTERNOS"_s,
                        u"No se pudo numerar el grupo de la posición '%1': revise el subitem %2."_s.arg(
                            primero.Texto(u"ncm"), primero.Texto(u"idsub")),
                        {}};
        insertarItem(r, primero, sumas, n);
        primero = std::move(despues);
    }
}

/// The keys of the items in the order in which they will come up, as far as can be told from here: the store
/// decides which texts are equal.
QStringList clavesPrevistas(const ContextoArmado &r) {
    Recordset grupos;
    r.consultar(
        u"select * from groupsubitems "
        "where interno = %1 and id is null order by idsub"_s.arg(r.clave()),
        grupos);
    QStringList claves;
    QSet<QString> vistas;
    for (; !grupos.Eof(); grupos.MoveNext()) {
        const QString clave = claveDe(r, grupos, clavesDeAparicion, Puntas::Recortadas);
        const auto antes = vistas.size();
        vistas.insert(clave.toCaseFolded());
        if (vistas.size() > antes) claves << clave;
    }
    return claves;
}

/// The same for a server, many items in one journey: each is asked for as it is foreseen, and the answers
/// tell whether it was. Otherwise, and when a statement fails, nothing of it stays, and the answer is false.
bool numerarJuntos(ContextoArmado &r) {
    const QStringList claves = clavesPrevistas(r);
    Conexion &internos = r.internos();
    try {
        Transaccion transaccion(internos);
        constexpr qsizetype tramo = 64;
        for (qsizetype desde = 0; desde < claves.size(); desde += tramo) {
            QStringList sentencias;
            const qsizetype hasta = std::min(desde + tramo, claves.size());
            for (qsizetype k = desde; k < hasta; ++k)
                sentencias << primerGrupoSinItem(r) << numerar(k + 1, claves.at(k)) << sumasDelItem(r, k + 1);
            const std::vector<Recordset> respuestas = internos.ConsultarSeguidas(sentencias);
            for (qsizetype k = desde; k < hasta; ++k) {
                const auto suyas = static_cast<std::size_t>(k - desde) * 3;
                const Recordset &primero = respuestas[suyas];
                if (primero.Eof() ||
                    claveDe(r, primero, clavesDeAparicion, Puntas::Recortadas) != claves.at(k))
                    return false;
                insertarItem(r, primero, respuestas[suyas + 2], k + 1);
            }
        }
        Recordset otro;
        if (r.consultar(primerGrupoSinItem(r), otro)) return false;
        transaccion.Confirmar();
        return true;
    } catch (const Falla &e) {
        if (e.numero == Falla::sinStore) throw;
        return false;
    }
}

void numerarPorAparicion(ContextoArmado &r) {
    if (!r.esSQL() || !numerarJuntos(r)) numerarUnoPorUno(r);
}

void numerarPorNcm(ContextoArmado &r) {
    qint64 n = 1;
    Recordset rs;
    r.consultar(
        u"select interno,ncm,%1estadistica,idpais,idpaisproc,idunidad,estadomerc,biendeuso,"
        "sum(%2) as valrel,deresp,sum(%3) as valder,"
        "sum(cantidad) as cant,lapi,sum(FOB) as fobtotal, "
        "sum(%4) as rkgneto, sum(kgbruto) as rkgbruto,"
        "itfiller,sum(insumostemp) as tinsumostemp, sum(insumosacons) as tinsumosacons,"
        "cancelaciones, tipoitem,ONCCACategoria,ONCCACortes, "
        "sum(ajusteincluir) as tajusteincluir,sum(ajustededucir) as tajustededucir  "
        "from groupsubitems "
        "where interno = %5 "
        "group by interno,ncm,%1estadistica,idpais,idpaisproc,idunidad,estadomerc,deresp,biendeuso,"
        "lapi,itfiller,cancelaciones,tipoitem,ONCCACategoria,ONCCACortes "
        "order by tipoitem desc, ncm, itfiller"_s.arg(
            r.esDJAI() ? "descripcion,"_L1 : ""_L1, redondeado(r, u"valorrelacionestadistica"_s),
            redondeado(r, u"valorderesp"_s), redondeado(r, u"kgneto"_s), r.clave()),
        rs);
    for (; !rs.Eof(); rs.MoveNext()) {
        insertarItem(r, rs, rs, n);
        if (!r.DATOCOMPRADOR.isEmpty())
            AgregarInformacionAdicional(r, n, u"DATO-COMPRADOR"_s, r.DATOCOMPRADOR);
        ++n;
    }
}

/// Gives each group the number of its item; numbering by appearance has done so already.
void enlazarGrupos(ContextoArmado &r) {
    const QString comparaciones =
        u"(groupsubitems.interno = item.Interno and "
        "groupsubitems.ncm = item.NCM and "
        "%1"
        "(groupsubitems.idpais = item.Idpais or groupsubitems.idpais is null) and "
        "(groupsubitems.idpaisproc = item.Idproc or groupsubitems.idpaisproc is null) and "
        "groupsubitems.idunidad = item.idunidad and "
        "(groupsubitems.itfiller = item.itfiller or groupsubitems.itfiller is null) and "
        "(groupsubitems.estadomerc = item.estadomerc or groupsubitems.estadomerc is null) and "
        "groupsubitems.biendeuso = item.Biendeuso and "
        "groupsubitems.cancelaciones = item.cancelaciones and "
        "groupsubitems.tipoitem = item.tipoitem)"_s.arg(
            r.esDJAI()
                ? "(groupsubitems.descripcion = item.descripcion or groupsubitems.descripcion is null) and "_L1
                : ""_L1);
    const QString forma = r.esSQL() ? u"Update groupsubitems "
                                      "Set groupsubitems.ID = ITEM.ID "
                                      "from groupsubitems INNER JOIN item on %1 "
                                      "where groupsubitems.interno = %2"_s
                                    : u"Update groupsubitems Inner Join item On %1 "
                                      "Set groupsubitems.ID = ITEM.ID "
                                      "where groupsubitems.interno = %2"_s;
    if (r.ejecutar(forma.arg(comparaciones, r.clave())) == 0)
        r.ctx.dialogos.critico(u"Error en Agrupar Subitems"_s);
}

}  // namespace

void ControlarKiloBruto(ContextoArmado &r) {
    const auto hay = [&r](L prueba) {
        return r.numero(
                   u"select count(*) as cant from groupsubitems "
                   "where interno = %1 and %2"_s.arg(r.clave(), prueba),
                   u"cant") > 0;
    };
    const bool con = hay("kgbruto > 0"_L1);
    const bool sin = hay("kgbruto = 0"_L1);
    if (con && !sin) {
        const double total = r.numero(
            "select sum(kgbruto) as total from groupsubitems where interno = "_L1 + r.clave(), u"total");
        r.mandar(
            u"update caratula set BULPES= %1 "
            "where interno = %2"_s.arg(SqlNumber(r.ctx, total), r.clave()));
    } else if (!con && sin) {
        r.mandar("update caratula set BULPES = 0 where interno = "_L1 + r.clave());
    } else {
        r.ctx.dialogos.informar(
            u"Hay Subitem's que no tiene ingresado el KG Bruto.\r\n\r\n"
            "Por favor verifique los mismos en la opcion CARGA DE SUBITEMS"_s,
            u"KG BRUTOS (BULTOS)"_s);
    }
}

void DividirItemsGrandes(ContextoArmado &r) {
    Recordset grandes;
    r.consultar(
        u"select count(*),interno,ncm,estadistica,%1idpais,idpaisproc,idunidad,estadomerc,biendeuso,"
        "sum(valorrelacionestadistica) as valrel,deresp,sum(valorderesp) as valder,"
        "sum(cantidad) as cant,lapi,sum(FOB) as fobtotal, "
        "sum(kgneto) as rkgneto, sum(kgbruto) as rkgbruto,"
        "itfiller,cancelaciones,codigoean,tipoitem "
        "From groupsubitems "
        "where interno = %2 "
        "group by interno,ncm,estadistica,%1idpais,idpaisproc,idunidad,estadomerc,deresp,biendeuso,"
        "lapi,itfiller,cancelaciones,codigoean,tipoitem "
        "having count(*)>%3"_s.arg(r.esDJAI() ? "descripcion,"_L1 : ""_L1, r.clave(),
                                   QString::number(maximoDeGrupos)),
        grandes);
    for (; !grandes.Eof(); grandes.MoveNext()) {
        Recordset grupos;
        const auto abrir = [&](Puntas puntas) {
            return r.abrirActualizable(
                "select * from groupsubitems "_L1 + claveDe(r, grandes, clavesDePartes, puntas), grupos,
                u"groupsubitems"_s);
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
    const QString clave = r.clave();
    r.mandar(u"INSERT INTO item (id,interno,totalkneto) values (0,%1,0)"_s.arg(clave));
    const auto enTodos = [&](L columna, const QString &literal) {
        r.mandar(
            u"update item set %1 = %2 "
            "where interno = %3"_s.arg(columna, literal, clave));
    };
    const auto enCero = [&](L columna, const QString &literal) {
        r.mandar(
            u"update item set %1 = %2 "
            "where id=0 and interno = %3"_s.arg(columna, literal, clave));
    };
    if (!r.DCPaisDestino.isEmpty())
        r.mandar(
            u"update item set idproc = %1 "
            "where interno = %2 and (idproc = '' or idproc is null)"_s.arg(EnComillas(r.DCPaisDestino),
                                                                           clave));
    if (!r.DCStandard.isEmpty()) enTodos("standard"_L1, EnComillas(r.DCStandard));
    if (!r.DCRegalias.isEmpty()) enTodos("regalias"_L1, EnComillas(r.DCRegalias));
    if (!r.DCEstMerc.isEmpty() && r.DCForzarEstMerc) enCero("EstadoMerc"_L1, EnComillas(r.DCEstMerc));
    if (!r.DCPaisOrigen.isEmpty() && r.DCForzarPaisOrigen) enCero("IdPais"_L1, EnComillas(r.DCPaisOrigen));
    // All eight hang on the agreement alone.
    if (!r.ONCCAAcuerdo.isEmpty()) {
        enTodos("ONCCAAcuerdo"_L1, TextoEnComillas(r.ONCCAAcuerdo));
        enTodos("ONCCAElaborador"_L1, TextoEnComillas(r.ONCCAElaborador));
        enTodos("ONCCAEspecie"_L1, TextoEnComillas(r.ONCCAEspecie));
        enTodos("ONCCAFaneador"_L1, TextoEnComillas(r.ONCCAFaneador));
        enTodos("ONCCAMatadero"_L1, TextoEnComillas(r.ONCCAMatadero));
        enTodos("ONCCAMeccoorgbio"_L1, TextoEnComillas(r.ONCCAMeccoorgbio));
        enTodos("ONCCARes3106"_L1, TextoEnComillas(r.ONCCARes3106));
        enTodos("ONCCASisPro"_L1, TextoEnComillas(r.ONCCASisPro));
    }
    if (!r.OpcionesIVA.isEmpty()) enTodos("OpcionesIVA"_L1, EnComillas(r.OpcionesIVA));
    if (!r.OpcionesGanancias.isEmpty()) enTodos("OpcionesGanancias"_L1, EnComillas(r.OpcionesGanancias));
    if (r.descripcionForzada) {
        const QString descripcion = TextoEnComillas(r.DC_DJAI_DescripcionMercaderia);
        enTodos("descripcion"_L1, descripcion);
        r.mandar(
            u"update groupsubitems set descripcion = %1 "
            "where interno = %2"_s.arg(descripcion, clave));
    }
    struct Lista {
        L prueba;
        L lista;
    };
    // The last four test equality: a split item of those lists carries a digit behind the marker and does not
    // map.
    static constexpr std::array<Lista, 7> listas{{
        {"left(itfiller,9) = 'LISTA:314'"_L1, "314/R.AUTOMOTRIZ"_L1},
        {"left(itfiller,14) = 'LISTA:MERCOSUR'"_L1, "MERCOSUR"_L1},
        {"left(itfiller,11) = 'LISTA:904/1'"_L1, "904/1"_L1},
        {"itfiller = 'LISTA:306'"_L1, "306"_L1},
        {"itfiller = 'LISTA:355'"_L1, "355"_L1},
        {"itfiller = 'LISTA:357'"_L1, "357"_L1},
        {"itfiller = 'LISTA:359/3'"_L1, "359/3"_L1},
    }};
    for (const Lista &l : listas)
        r.mandar(
            u"update item set LISTA = %1 "
            "where interno = %2 and %3"_s.arg(EnComillas(l.lista), clave, l.prueba));
}

void ControlarTiposGD(ContextoArmado &r) {
    Recordset rs;
    if (!r.consultar(u"select id from item "
                     "where interno = %1 and tipoitem = 'G'"_s.arg(r.clave()),
                     rs))
        return;
    const QString noSe = u"\r\n\r\nNo se establecio el ITEM RELACIONADO!"_s;
    if (rs.RecordCount() > 1) {
        r.ctx.dialogos.advertir(
            u"ADVERTENCIA!: Hay mas de 1 item tipo G, solo puede haber uno y ser el primer item"_s + noSe);
    } else if (rs.Numero(u"ID") == 1) {
        r.ejecutar(
            u"Update item set itemasociado = '001' "
            "where interno = %1 and tipoitem='D'"_s.arg(r.clave()));
        r.ctx.dialogos.informar(u"Se establecio como ITEM RELACIONADO el 001 en todos los items tipo D"_s);
    } else {
        r.ctx.dialogos.advertir(u"ADVERTENCIA!: El Item tipo G debe ser el primer item"_s + noSe);
    }
}

void AgregarInformacionAdicional(ContextoArmado &r, qint64 iditem, const QString &idinfo,
                                 const QString &valor) {
    r.mandar(u"insert into ITEMINFO (INTERNO, IDITEM, IDINFO, VALOR) values (%1,%2,%3,%4)"_s.arg(
        r.clave(), QString::number(iditem), EnComillas(idinfo), EnComillas(SinComillas(valor))));
}
