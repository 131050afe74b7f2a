// A backup taken in the middle of an assembly.

#include <gtest/gtest.h>

#include <QProcess>

#include "tests/support/lote.h"
#include "tests/support/tienda.h"
#include "upgrade/respaldo.h"
#include "upgrade/verificacion.h"

using namespace Qt::StringLiterals;

namespace {

const QString operacion = u"IC-2026-0001"_s;

class RespaldoEnMarcha : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    /// Many lines that do not fold, so that the run lasts; the header declares what they add up to.
    void multiplicarLineas() {
        const QString iguales =
            u"interno,idcatalogo,idarticulo,otros,ncm,descripcion,descripcion_maria,idunidad,cantidad,estadistica,"
            "valorrelacionestadistica,deresp,valorderesp,idpais,idpaisproc,estadomerc,sufijos,biendeuso,codprorrateo,"
            "kgneto,kgbruto,tipoitem"_s;
        const QString hasta = valor(u"select max(id) as n from subitems"_s);
        constexpr int veces = 60;
        for (int n = 1; n < veces; ++n) {
            const QString precio = u"preciounitario + 0.0%1"_s.arg(n, 2, 10, QLatin1Char('0'));
            ejecutar(
                u"insert into subitems (%1, preciounitario, fob) "
                "select %1, %2, round(cantidad * (%2), 2) from subitems where interno = '%3' and id <= %4"_s
                    .arg(iguales, precio, operacion, hasta));
        }
        ejecutar(
            u"update caratula set fobdivisas = (select sum(fob) from subitems where interno = '%1') "
            "where interno = '%1'"_s.arg(operacion));
    }
    static Corrida armar(const Tienda &t) {
        return Lote(t.carpeta(), {u"--perfil"_s, t.perfil(), u"armar"_s, operacion, u"--forzar"_s});
    }
};
EN_AMBOS_STORES(RespaldoEnMarcha);

TEST_P(RespaldoEnMarcha, RestoresToStoresThatOpenAndAreArmedAgain) {
    multiplicarLineas();
    const auto corrida = EmpezarLote(tienda->carpeta(),
                                     {u"--perfil"_s, tienda->perfil(), u"armar"_s, operacion, u"--forzar"_s});
    const QString grupos = u"select count(*) as n from groupsubitems"_s;
    while (corrida->state() != QProcess::NotRunning && valor(grupos) == u"0"_s) corrida->waitForFinished(1);
    const QString copia = tienda->carpeta() + u"/copia.zrespaldo"_s;
    const actualizacion::Resultado r = actualizacion::Respaldar(tienda->perfil(), copia);
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_NE(corrida->state(), QProcess::NotRunning) << "the run went on beside the backup";
    const Corrida c = TerminarLote(*corrida);
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();

    const Tienda otra(QString::fromLatin1(GetParam()));
    const actualizacion::Resultado vuelta = actualizacion::Restaurar(otra.perfil(), copia);
    ASSERT_TRUE(vuelta.ok) << vuelta.error.toStdString();
    EXPECT_TRUE(actualizacion::Verificar(otra.perfil()).ok);
    const Corrida deNuevo = armar(otra);
    EXPECT_EQ(deNuevo.estado, 0) << deNuevo.errores.toStdString();
    EXPECT_EQ(deNuevo.resultado()[u"items"_s], c.resultado()[u"items"_s]);
    EXPECT_EQ(deNuevo.resultado()[u"grupos"_s], c.resultado()[u"grupos"_s]);
    EXPECT_GT(deNuevo.resultado()[u"grupos"_s].toInt(), 500);
    EXPECT_EQ(actualizacion::Verificar(otra.perfil()).defectos.join(u'\n').toStdString(), "");
}

}  // namespace
