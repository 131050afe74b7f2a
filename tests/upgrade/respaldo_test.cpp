// Backups of both kinds of store, taken while people work, and their way back.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QUuid>
#include <atomic>
#include <thread>

#include "frame/store/StoreProfiles.h"
#include "tests/support/tienda.h"
#include "upgrade/respaldo.h"
#include "upgrade/schema.h"
#include "upgrade/verificacion.h"

using namespace Qt::StringLiterals;

using actualizacion::Respaldar;
using actualizacion::Restaurar;
using actualizacion::Resultado;
using actualizacion::Verificacion;
using actualizacion::Verificar;

namespace {

class Respaldos : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    QString archivo(const QString &nombre = u"respaldo.zrespaldo"_s) const {
        return tienda->carpeta() + u'/' + nombre;
    }
    /// Every row of every table of the stores behind `donde`, without order.
    static QStringList todo(AppContext &donde) {
        QStringList lineas;
        for (const esquema::Tabla &t : esquema::tablas()) {
            Recordset rs;
            QStringList suyas;
            for (Consultar(donde, t.entidad, u"select * from "_s + t.nombre, rs); !rs.Eof(); rs.MoveNext()) {
                QStringList celdas{t.nombre};
                for (int c = 0; c < rs.columnas(); ++c)
                    celdas << rs.nombreDeColumna(c) + u'=' + rs.Fields(c).Value.toString();
                suyas << celdas.join(u'|');
            }
            suyas.sort();
            lineas += suyas;
        }
        return lineas;
    }
    static void sonIguales(const QStringList &unas, const QStringList &otras) {
        ASSERT_EQ(unas.size(), otras.size());
        for (qsizetype n = 0; n < unas.size(); ++n)
            ASSERT_EQ(unas.at(n).toStdString(), otras.at(n).toStdString());
    }
    /// An office without anything yet, on the same kind of store.
    std::unique_ptr<Tienda> otraOficina() const {
        return std::make_unique<Tienda>(QString::fromLatin1(GetParam()));
    }
};
EN_AMBOS_STORES(Respaldos);

TEST_P(Respaldos, ABackupComesBackIntoAnEmptyProfileWithEveryRow) {
    ejecutar(u"insert into caratula (interno, factura7) values ('Ñ-1', 'D''Ángelo \"2\" 🚢')"_s);
    const QStringList antes = todo(*ctx);
    ctx->DataManager.CloseAllDataConnection();
    Resultado r = Respaldar(tienda->perfil(), archivo());
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(QFile::permissions(archivo()) & (QFile::ReadGroup | QFile::ReadOther), 0);
    const auto nueva = otraOficina();
    r = Restaurar(nueva->perfil(), archivo());
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    Registro otroRegistro;
    const auto contexto = nueva->contexto(otroRegistro);
    AppContext &otro = *contexto;
    sonIguales(todo(otro), antes);
    // Numbering goes on behind what came.
    Ejecutar(otro, u"INTERNOS"_s, u"insert into subitems (interno) values ('Ñ-1')"_s);
    Recordset rs;
    Consultar(otro, u"INTERNOS"_s, u"select id from subitems where interno = 'Ñ-1'"_s, rs);
    EXPECT_GT(rs.Numero(u"id"), valor(u"select max(id) as n from subitems"_s).toDouble());
    otro.DataManager.CloseAllDataConnection();
    const Verificacion v = Verificar(nueva->perfil());
    EXPECT_TRUE(v.ok) << v.error.toStdString();
    EXPECT_EQ(v.defectos.join(u'\n').toStdString(), "");
}

TEST_P(Respaldos, WhatIsWrittenTogetherIsInTheBackupTogetherWhilePeopleWork) {
    std::atomic<bool> seguir = true;
    std::atomic<int> escritas = 0;
    // A workstation of its own: a header and its comment lie in two stores, the header last.
    std::thread otra([&] {
        Registro suRegistro;
        const auto contexto = tienda->contexto(suRegistro);
        AppContext &suyo = *contexto;
        for (int n = 0; seguir; ++n, ++escritas) {
            const QString clave = u"W-%1"_s.arg(n);
            Ejecutar(suyo, u"SYSTABLAS"_s,
                     u"insert into coment (interno, coment) values ('%1', 'x')"_s.arg(clave));
            Ejecutar(suyo, u"INTERNOS"_s, u"insert into caratula (interno) values ('%1')"_s.arg(clave));
        }
        suyo.DataManager.CloseAllDataConnection();
    });
    while (escritas < 5) std::this_thread::yield();
    const Resultado r = Respaldar(tienda->perfil(), archivo());
    const int alTerminar = escritas;
    while (escritas < alTerminar + 2) std::this_thread::yield();
    seguir = false;
    otra.join();
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    const auto nueva = otraOficina();
    ASSERT_TRUE(Restaurar(nueva->perfil(), archivo()).ok);
    Registro otroRegistro;
    const auto contexto = nueva->contexto(otroRegistro);
    AppContext &otro = *contexto;
    Recordset rs;
    Consultar(otro, u"INTERNOS"_s, u"select count(*) as n from caratula where interno like 'W-%'"_s, rs);
    const double caratulas = rs.Numero(u"n");
    EXPECT_GE(caratulas, 5);
    Consultar(otro, u"SYSTABLAS"_s, u"select count(*) as n from coment where interno like 'W-%'"_s, rs);
    EXPECT_GE(rs.Numero(u"n"), caratulas) << "every header that is there came behind its comment";
    EXPECT_LE(rs.Numero(u"n"), caratulas + 1) << "one cut through both";
}

TEST_P(Respaldos, AProfileThatHoldsRowsIsNotTouched) {
    ASSERT_TRUE(Respaldar(tienda->perfil(), archivo()).ok);
    const QStringList antes = todo(*ctx);
    ctx->DataManager.CloseAllDataConnection();
    const Resultado r = Restaurar(tienda->perfil(), archivo());
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.error.contains(u"ya tiene datos, que un respaldo no pisa; restaure en un perfil nuevo."_s))
        << r.error.toStdString();
    sonIguales(todo(*ctx), antes);
}

TEST_P(Respaldos, ADamagedBackupRestoresNothing) {
    ASSERT_TRUE(Respaldar(tienda->perfil(), archivo()).ok);
    QFile f(archivo());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray entero = f.readAll();
    struct Caso {
        const char *nombre;
        QByteArray datos;
        const char *dice;
    };
    QByteArray otroByte = entero;
    otroByte[entero.size() / 2] = static_cast<char>(~otroByte[entero.size() / 2]);
    const Caso casos[] = {
        {"cortado", entero.left(entero.size() / 2), "está dañado"},
        {"un byte", otroByte, "está dañado"},
        {"otra cosa", QByteArray("esto no es un respaldo\n").repeated(500),
         "no es un respaldo de este programa"},
        {"vacío", {}, "no es un respaldo de este programa"},
    };
    const auto nueva = otraOficina();
    Registro otroRegistro;
    const auto contexto = nueva->contexto(otroRegistro);
    AppContext &otro = *contexto;
    const QStringList antes = todo(otro);
    otro.DataManager.CloseAllDataConnection();
    for (const Caso &caso : casos) {
        const QString malo = archivo(u"malo"_s);
        QFile m(malo);
        ASSERT_TRUE(m.open(QIODevice::WriteOnly | QIODevice::Truncate));
        m.write(caso.datos);
        m.close();
        const Resultado r = Restaurar(nueva->perfil(), malo);
        EXPECT_FALSE(r.ok) << caso.nombre;
        EXPECT_TRUE(r.error.contains(QString::fromUtf8(caso.dice)))
            << caso.nombre << ": " << r.error.toStdString();
        sonIguales(todo(otro), antes);
        otro.DataManager.CloseAllDataConnection();
    }
    EXPECT_FALSE(Restaurar(nueva->perfil(), archivo(u"no-está"_s)).ok);
    EXPECT_TRUE(Restaurar(nueva->perfil(), archivo()).ok) << "the whole one still does";
}

TEST_P(Respaldos, OneOfAnotherKindOfStoreIsRefusedWithTheRoadThatThereIs) {
    ASSERT_TRUE(Respaldar(tienda->perfil(), archivo()).ok);
    const Tienda otra(GetParam() == std::string("SQL") ? u"ACCESS"_s : u"SQL"_s);
    const Resultado r = Restaurar(otra.perfil(), archivo());
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.error.contains(u"zendra_lote exportar e importar"_s)) << r.error.toStdString();
}

TEST_P(Respaldos, AFolderThatCannotBeWrittenIsToldAndNoHalfOfAFileStays) {
    const Resultado r = Respaldar(tienda->perfil(), u"/proc/respaldo"_s);
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.error.contains(u"/proc"_s)) << r.error.toStdString();
    ASSERT_TRUE(Respaldar(tienda->perfil(), archivo()).ok);
    EXPECT_EQ(QDir(tienda->carpeta()).entryList({u"respaldo-*"_s}, QDir::AllEntries).size(), 0)
        << "what it worked in is gone";
}

class Verificaciones : public Respaldos {
 protected:
    Verificacion mirar() {
        ctx->DataManager.CloseAllDataConnection();
        return Verificar(tienda->perfil());
    }
};
EN_AMBOS_STORES(Verificaciones);

TEST_P(Verificaciones, ASoundStoreHasNoDefectsAndEveryTableIsCounted) {
    const Verificacion v = mirar();
    ASSERT_TRUE(v.ok) << v.error.toStdString();
    EXPECT_EQ(v.defectos.join(u'\n').toStdString(), "");
    EXPECT_EQ(v.tablas.size(), static_cast<qsizetype>(esquema::tablas().size()));
    EXPECT_TRUE(v.tablas.contains(
        u"INTERNOS caratula: %1 filas"_s.arg(valor(u"select count(*) as n from caratula"_s))));
}

TEST_P(Verificaciones, RowsThatHangFromNothingAreToldByTableAndWhatStaysByDesignIsNoDefect) {
    ejecutar(u"insert into itemliq (interno, iditem, idconceptos) values ('NO ESTÁ', 1, '010')"_s);
    ejecutar(u"insert into idrel (interno, idroot, idsub) values ('NO ESTÁ', 1, 2)"_s);
    ejecutar(u"insert into coment (interno, coment) values ('NO ESTÁ', 'x')"_s, u"SYSTABLAS"_s);
    ejecutar(u"insert into groupsubitems (interno, id, idsub) values ('IC-2026-0001', 1, 99999)"_s);
    const Verificacion v = mirar();
    ASSERT_TRUE(v.ok) << v.error.toStdString();
    EXPECT_EQ(
        v.defectos.join(u'\n').toStdString(),
        "INTERNOS: itemliq: 1 filas de operaciones que no están\n"
        "INTERNOS: groupsubitems: 1 filas nombran en idsub algo que subitems no tiene; arme de nuevo sus "
        "operaciones\n"
        "INTERNOS: itemliq: 1 filas nombran en iditem algo que item no tiene; arme de nuevo sus operaciones");
    EXPECT_EQ(v.restos.join(u'\n').toStdString(),
              "INTERNOS: idrel: 1 filas de operaciones que no están\n"
              "SYSTABLAS: coment: 1 filas de operaciones que no están");
}

TEST_P(Verificaciones, AMissingIndexAndAMissingTableAreToldWithWhatMendsThem) {
    ejecutar(u"drop index ix_caratula_interno"_s);
    ejecutar(u"drop table liqcero"_s);
    Verificacion v = mirar();
    EXPECT_EQ(v.defectos.join(u'\n').toStdString(),
              "INTERNOS: a caratula le falta el índice ix_caratula_interno; ejecute DbUpgrade3\n"
              "INTERNOS: falta la tabla liqcero; ejecute DbUpgrade3");
    ASSERT_TRUE(actualizacion::Actualizar(tienda->perfil()).ok);
    v = mirar();
    EXPECT_EQ(v.defectos.join(u'\n').toStdString(), "");
}

}  // namespace
