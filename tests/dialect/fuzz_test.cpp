// Random and mutated statements: the translator ends, and never changes what stands between quotes.

#include <QElapsedTimer>
#include <QStringList>
#include <random>

#include "frame/store/dialect_tokens.h"
#include "tests/dialect/casos.h"

using namespace Qt::StringLiterals;

namespace {

const char *const semillas[] = {
    "Update groupsubitems Set groupsubitems.IDsub = SubItems.ID,groupsubitems.idcatalogo = "
    "SubItems.idcatalogo from groupsubitems INNER JOIN subitems ON "
    "(groupsubitems.interno = subitems.Interno and groupsubitems.ncm = subitems.NCM) where "
    "groupsubitems.interno = 'OP''1'",
    "Update groupsubitems Inner Join item On (groupsubitems.interno = item.Interno) Set groupsubitems.ID = "
    "ITEM.ID where groupsubitems.interno = 'X'",
    "select top 2 * from groupsubitems where flgkg = '*' and interno = 'X' and kgneto > 0.05 order by kgneto "
    "desc",
    "select distinct idsub,fob,cantidad,fob + ((  ROUND(fob,2) * 12.5) / 100) as valor from groupsubitems "
    "where interno = 'X'",
    "update itemliq set porcentaje = ROUND((3 * 2) - ((50 * 3 * 2) / 100),2) where idconceptos in "
    "('424','856') and interno = 'X' and iditem = 1",
    "select [001]+ '.' +[002] + [003] as ncm,[012] as estadistica from ncm where [001] like '84%' order by "
    "[001],[002],[003]",
    "select * from subitems as a where NOT EXISTS (select  1 From NCM where left(a.ncm,10) = ncm.[001] and  "
    "substring (a.ncm,12,3) = ncm.[002]) and a.interno "
    "= 'X' order by a.id desc",
    "select * from caratula  where  ( FechaAlta between #01/31/2026# and #02/28/2026 10:20:30# ) and  "
    "interno like 'IC%' ",
    "select * from subitems as a where NOT EXISTS (select  (ncm.[001] + '.' + ncm.[002]) from ncm where "
    "ncm.[059] = '*' and a.ncm = (ncm.[001] + '.' + ncm.[002])) and a.interno = 'X' order by a.id asc",
    "exec ProcesarDescargasconTLR1 'OP1'",
    "SELECT id, dbo.groupsubitem_descripcion_select_concat( id, interno ) as descripcion From groupsubitems "
    "where interno = 'X'",
    "insert into itemventaja (iditem,idventaja,interno) select id, 'VEHICULOPARTES', interno from item where "
    "interno = 'O''Higgins' and ncm = ''",
    "select ncm,sum(fob) as t from groupsubitems where interno = 'X' group by ncm,idpais having count(*)>1 "
    "order by ncm union select a,b from t -- fin",
};

const char *const trozos[] = {
    "'",          "''",        "\"",      "[",       "]",      "(",       ")",
    "#",          "/",         "/*",      "*/",      "--",     "+",       "||",
    " exists (",  " and ",     "select ", " top 1 ", " from ", " where ", " order by ",
    " group by ", " union ",   " like ",  "left(",   "dbo.",   "exec ",   " inner join ",
    " on ",       " set ",     "update ", ",",       ";",      "\n",      "ñ",
    "😀",          "1",         "0",       ".5",      "1e",     "<>",      "= <>",
    " distinct ", "#1/1/2026#"};

/// The texts between quotes, in order; nothing when the statement does not even cut.
std::vector<QString> citados(const QString &texto) {
    dialecto::Tokens t;
    std::vector<QString> todos;
    if (!t.partir(texto)) return todos;
    for (std::size_t i = 0; i < t.size(); ++i)
        if (t[i].clase == dialecto::Clase::Texto) todos.push_back(t[i].vista.toString());
    return todos;
}

/// What the translator may add of its own: moments out of hashes, and the empty escape character.
bool propio(const QString &cita) {
    static const QStringList ceros{u"''"_s};
    return ceros.contains(cita) ||
           (cita.size() == 21 && cita.at(5) == QLatin1Char('-') && cita.at(14) == QLatin1Char(':'));
}

/// The first of each of the texts.
std::vector<QString> sinRepetir(const std::vector<QString> &textos) {
    std::vector<QString> unos;
    for (const QString &t : textos)
        if (std::find(unos.begin(), unos.end(), t) == unos.end()) unos.push_back(t);
    return unos;
}

/// Every quoted text of `antes` stands unchanged and in order in `despues`. A select's list moves into the
/// order of its groups and updates over joins keep theirs, so texts may be repeated but never lost.
bool enOrden(const std::vector<QString> &antes, const std::vector<QString> &despues) {
    std::size_t k = 0;
    for (const QString &cita : despues)
        if (k < antes.size() && cita == antes[k]) ++k;
    if (k == antes.size()) return true;
    return false;
}

void comprobar(const QString &texto) {
    const bool entendido = dialecto::Tokens().partir(texto);
    const std::vector<QString> antes = citados(texto);
    for (const motores::Motor *motor : {&motores::archivo(), &motores::servidor()}) {
        for (const bool identidad : {false, true}) {
            const QString traducido = identidad ? dialecto::conIdentidad(texto, ajustesDePrueba(*motor))
                                                : dialecto::traducir(texto, ajustesDePrueba(*motor));
            if (!entendido) {
                ASSERT_EQ(traducido.toStdString(), texto.toStdString()) << "not understood, so not touched";
                continue;
            }
            const std::vector<QString> despues = citados(traducido);
            // What an EXISTS lists and compares alike is said once.
            const bool dosVeces = texto.contains("exists"_L1, Qt::CaseInsensitive);
            ASSERT_TRUE(enOrden(dosVeces ? sinRepetir(antes) : antes, despues)) << texto.toStdString() << "\n"
                                                                                << traducido.toStdString();
            for (const QString &cita : despues)
                ASSERT_TRUE(propio(cita) || std::find(antes.begin(), antes.end(), cita) != antes.end())
                    << cita.toStdString() << " came out of\n"
                    << texto.toStdString();
        }
    }
}

QString mutado(QString texto, std::mt19937 &azar) {
    const auto hasta = [&azar](qsizetype n) {
        return static_cast<qsizetype>(azar() % static_cast<std::uint32_t>(std::max<qsizetype>(1, n)));
    };
    const qsizetype golpes = 1 + hasta(6);
    for (qsizetype g = 0; g < golpes; ++g) {
        const qsizetype donde = hasta(texto.size() + 1);
        switch (azar() % 5) {
            case 0:
                texto.insert(donde, QString::fromUtf8(trozos[azar() % std::size(trozos)]));
                break;
            case 1:
                texto.remove(donde, 1 + hasta(8));
                break;
            case 2:
                texto.insert(donde, QChar(static_cast<char16_t>(azar() % 0x250)));
                break;
            case 3:
                texto.insert(donde, texto.mid(hasta(texto.size()), hasta(40)));
                break;
            default:
                texto = texto.left(donde) +
                        QString::fromUtf8(semillas[azar() % std::size(semillas)]).mid(hasta(60));
                break;
        }
    }
    return texto;
}

TEST(Fuzz, StatementsOfTheSystemKeepTheirTexts) {
    for (const char *semilla : semillas) comprobar(QString::fromUtf8(semilla));
}

TEST(Fuzz, MutatedStatementsNeitherCrashNorChangeAText) {
    std::mt19937 azar(20260115);
    QElapsedTimer reloj;
    reloj.start();
    int corridas = 0;
    // Bounded by count on a quick machine and by time on a slow one.
    for (; corridas < 20000 && reloj.elapsed() < 1500 && !HasFatalFailure(); ++corridas)
        comprobar(mutado(QString::fromUtf8(semillas[azar() % std::size(semillas)]), azar));
    EXPECT_GT(corridas, 100);
}

TEST(Fuzz, RandomTextsNeitherCrashNorChangeAText) {
    std::mt19937 azar(42);
    QElapsedTimer reloj;
    reloj.start();
    int corridas = 0;
    for (; corridas < 20000 && reloj.elapsed() < 700 && !HasFatalFailure(); ++corridas) {
        QString texto;
        const auto piezas = azar() % 24;
        for (unsigned p = 0; p < piezas; ++p) {
            if (azar() % 3 != 0)
                texto += QString::fromUtf8(trozos[azar() % std::size(trozos)]);
            else
                texto += QChar(static_cast<char16_t>(azar() % 0xFFFF));
        }
        comprobar(texto);
    }
    EXPECT_GT(corridas, 100);
}

TEST(Fuzz, DeepNestingAndLongTextsKeepTheirTexts) {
    const QString hondo = QString(20000, QLatin1Char('(')) + u"a"_s + QString(20000, QLatin1Char(')'));
    comprobar(u"update t set b = "_s + hondo + u" / "_s + hondo);
    comprobar(u"update t set b = '"_s + QString(200000, QLatin1Char('x')) + u"' + 'y'"_s);
    QString cadena = u"update t set b = a"_s;
    for (int i = 0; i < 5000; ++i) cadena += u" + 1"_s;
    comprobar(cadena);
}

}  // namespace
