// Two workstations that take, give back, delete and assemble at random, and are killed in the middle of it.

#include <sys/wait.h>
#include <unistd.h>

#include <QRandomGenerator>
#include <csignal>

#include "assembly/run.h"
#include "operations/lifecycle.h"
#include "stock/check.h"
#include "stock/itemcancel.h"
#include "tests/stock/ensayo.h"

using namespace Qt::StringLiterals;
using namespace stock;

namespace {

/// A workstation with an export of its own.
class Puesto {
 public:
    Puesto(const Tienda &tienda, const QString &clave, quint32 semilla)
        : ctx_(tienda.contexto(registro_)), clave_(clave), azar_(semilla) {
        ctx_->PcName = u"PC de "_s + clave;
        fijarContexto(ctx_.get());
        Enchufar(*ctx_);
        AbrirSubItems(*ctx_, lineas_, clave_, {1, 1, 1, 1, 1, 1, 1, 1});
    }
    /// One thing that a user does. A store that is busy for too long is a user who tries again.
    void hacerAlgo() {
        registro_ = Registro();
        try {
            const int que = azar_.bounded(20);
            if (que < 9)
                tomar();
            else if (que < 13)
                borrarLinea();
            else if (que < 15)
                devolver();
            else if (que < 17)
                cancelar();
            else if (que < 19)
                armar();
            else
                empezarDeNuevo();
        } catch (const Falla &) {
        }
    }

 private:
    std::vector<qint64> ids() {
        std::vector<qint64> todos;
        Recordset rs;
        for (Consultar(*ctx_, u"INTERNOS"_s,
                       u"select id from subitems where interno = '%1' order by id"_s.arg(clave_), rs);
             !rs.Eof(); rs.MoveNext())
            todos.push_back(static_cast<qint64>(rs.Numero(u"id")));
        return todos;
    }
    qint64 una() {
        const std::vector<qint64> todas = ids();
        return todas.empty() ? 0 : todas[azar_.bounded(static_cast<quint32>(todas.size()))];
    }
    void tomar() {
        static const QStringList articulos{u"NT-PE','5603.12.30.100L"_s, u"HI-AL','5205.11.00.000A"_s};
        Ejecutar(
            *ctx_, u"INTERNOS"_s,
            u"insert into subitems (interno,idcatalogo,idarticulo,ncm,idunidad,cantidad,preciounitario,fob,"
            "estadistica,cancelaciones,kgneto,kgbruto) "
            "values ('%1','ALERCES','%2','01',%3,2,10,'01','',1,2)"_s.arg(clave_, articulos[azar_.bounded(2)])
                .arg(1 + azar_.bounded(400)));
        TomarParaLinea(*ctx_, clave_, ids().back());
    }
    void borrarLinea() {
        registro_.respuestas = {true};
        if (const qint64 linea = una(); linea != 0) EliminarSubItem(*ctx_, lineas_, linea);
    }
    void devolver() {
        if (const qint64 linea = una(); linea != 0) Devolver(*ctx_, TomasQueSiguen(*ctx_, clave_, linea));
    }
    void cancelar() {
        Cancelacion c;
        const std::vector<Oferta> ofertas = OfertasParaItem(*ctx_, clave_, {}, QDate::currentDate());
        if (ofertas.empty()) return;
        c.idstock = ofertas[azar_.bounded(static_cast<quint32>(ofertas.size()))].linea.id;
        c.cantidad = 0.5 * (1 + azar_.bounded(50));
        IngresarCancelacion(*ctx_, clave_, u"1"_s, c);
    }
    void armar() {
        ctx_->ChequeoArmado = u"SI"_s;
        Generar(*ctx_, clave_, {});
    }
    void empezarDeNuevo() {
        EliminarSinPreguntar(*ctx_, clave_);
        Ejecutar(*ctx_, u"INTERNOS"_s,
                 u"insert into caratula (interno,idsubreg,cuitcliente,fobcoddivisas,fobdivcambio,factura8) "
                 "values ('%1','EC02','%2','DOL',1,'N')"_s.arg(clave_, clienteDeStock));
    }

    Registro registro_;
    std::unique_ptr<AppContext> ctx_;
    QString clave_;
    QRandomGenerator azar_;
    SubItems lineas_;
};

class Caminata : public Ensayo {
 protected:
    void SetUp() override {
        Ensayo::SetUp();
        cargar();
        operacion(u"EX 2"_s);
    }
    int movimientos() { return valor(u"select count(*) from stockmov"_s).toInt(); }
    /// A process that works until it is killed.
    pid_t soltar(const QString &clave, quint32 semilla) {
        const pid_t hijo = fork();
        if (hijo != 0) return hijo;
        Puesto puesto(*tienda, clave, semilla);
        constexpr int muchas = 100000;
        for (int n = 0; n < muchas; ++n) puesto.hacerAlgo();
        _exit(0);
    }
};
EN_AMBOS_STORES(Caminata);

TEST_P(Caminata, TwoWorkstationsKilledInTheMiddleLeaveBalancesThatEqualAPlainCount) {
    constexpr quint32 semilla = 20261122;
    constexpr int rondas = 5;
    QRandomGenerator azar(semilla);
    for (int ronda = 0; ronda < rondas; ++ronda) {
        // A connection does not survive being in two processes.
        ctx->DataManager.CloseAllDataConnection();
        const pid_t hijos[] = {soltar(exportacion, azar.generate()), soltar(u"EX 2"_s, azar.generate())};
        // On a slow machine too they have done something, and are in the middle of the next.
        constexpr int suficientes = 12;
        constexpr int intentos = 600;
        for (int n = 0; n < intentos && movimientos() < (ronda + 1) * suficientes; ++n) usleep(50000);
        usleep(azar.bounded(100000));
        for (const pid_t hijo : hijos) {
            ASSERT_GT(hijo, 0);
            ASSERT_EQ(kill(hijo, SIGKILL), 0);
            int estado = 0;
            ASSERT_EQ(waitpid(hijo, &estado, 0), hijo);
            EXPECT_TRUE(WIFSIGNALED(estado)) << "it ended by itself";
        }
        EXPECT_EQ(desacuerdos(), QString()) << "round " << ronda;
        EXPECT_EQ(valor(u"select count(*) from stock where saldo < 0 or saldo > cantidad"_s), u"0"_s);
        // A killed user leaves at most what the next count mends: a line without its deletion's end.
        for (const Hallazgo &h : Revisar(*ctx)) EXPECT_TRUE(h.reparable) << h.texto.toStdString();
        Reparar(*ctx, Revisar(*ctx));
        for (const Hallazgo &h : Revisar(*ctx)) ADD_FAILURE() << h.texto.toStdString();
        EXPECT_EQ(desacuerdos(), QString()) << "round " << ronda;
        // An operation that was killed while it began anew.
        for (const QString &clave : {exportacion, u"EX 2"_s})
            if (valor(u"select count(*) from caratula where interno = '%1'"_s.arg(clave)) == "0"_L1)
                operacion(clave);
    }
    EXPECT_GT(movimientos(), 10 * rondas) << "they did work";
    EXPECT_GT(valor(u"select count(*) from stockmov where devuelta is not null"_s).toInt(), 0);
}

// One process, a long way, and a plain count at its end.
TEST_P(Caminata, ALongWalkOfOneWorkstationEndsWithNothingToTell) {
    {
        Puesto puesto(*tienda, exportacion, 7);
        constexpr int pasos = 150;
        for (int n = 0; n < pasos; ++n) puesto.hacerAlgo();
    }
    fijarContexto(ctx.get());
    EXPECT_EQ(desacuerdos(), QString());
    for (const Hallazgo &h : Revisar(*ctx)) ADD_FAILURE() << h.texto.toStdString();
    EXPECT_GT(valor(u"select count(*) from stockmov"_s).toInt(), 20);
    DevolverTodo(*ctx, exportacion);
    EXPECT_EQ(valor(u"select count(*) from stock where saldo <> cantidad"_s), u"0"_s);
}

}  // namespace
