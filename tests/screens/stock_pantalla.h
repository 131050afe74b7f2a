#pragma once
// A stock of two clients behind the screens, with the real links plugged in.

#include "desktop/stockqt.h"
#include "frame/base/values.h"
#include "stock/stock.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

/// What `Base` has, and the stock. The client of the import of the demonstration has three lines of the pump
/// NP-0750, one of them soon to expire and one expired, and one of NP-1100 of which nothing is left; another
/// client has a line of corks.
template <class Base>
class ConStock : public Base {
 protected:
    void SetUp() override {
        Base::SetUp();
        // In the place of the demonstration's.
        for (const char *tabla : {"stock", "stockmov", "descargas"})
            this->ejecutar(QStringLiteral("delete from ") + QLatin1String(tabla));
        this->ejecutar(QStringLiteral("update subitems set cancelaciones = '' where cancelaciones = 'OK'"));
        lineaDeStock(
            "26001IT14000011A|1|1|8413.70.10.100L|NP-0750|Electrobomba sumergible 750 W|100|100|10000",
            dia(400));
        lineaDeStock("26001IT14000012B|1|1|8413.70.10.100L|NP-0750|Electrobomba sumergible 750 W|50|50|5500",
                     dia(20));
        lineaDeStock("25001IT14000003C|2|1|8413.70.10.100L|NP-0750|Electrobomba sumergible 750 W|30|30|2700",
                     dia(-10));
        lineaDeStock(
            "26001IT14000011A|1|2|8413.70.10.100L|NP-1100|Electrobomba sumergible 1100 W|10|0|1462.5", {});
        lineaDeStock("26038IT14000020D|1|1|4503.10.00.000K|CORCHO|Tapones de corcho|1000|1000|90", dia(90),
                     otroCliente);
        stock::Enchufar(*this->ctx, PantallasDeStock());
        this->registro = {};
    }
    void TearDown() override {
        stock::Desenchufar();
        Base::TearDown();
    }
    static QDate dia(int dias) { return QDate::currentDate().addDays(dias); }
    static std::string textoDeDia(int dias) {
        return dia(dias).toString(QStringLiteral("dd/MM/yyyy")).toStdString();
    }
    void lineaDeStock(const char *campos, const QDate &vence, const QString &cuit = cliente) {
        const QStringList c = QString::fromUtf8(campos).split(QLatin1Char('|'));
        const auto diaEnSql = [this](const QDate &d) {
            return d.isValid() ? this->ctx->DataManager.getDateFormatbyEntity(QStringLiteral("INTERNOS"),
                                                                              d.startOfDay())
                               : QStringLiteral("null");
        };
        this->ejecutar(
            QStringLiteral(
                "insert into stock (dit,item,subitem,ncm,idcatalogo,idarticulo,descripcion,idunidad,cantidad,"
                "saldo,cif,divisa,preciounitario,idpais,sufijos,merma,fecha,vencimiento,cuitcliente,expctit,"
                "interno,idlinea) values ('%1',%2,%3,'%4','HIDPLATA','%5','%6','07',%7,%8,%9,'DOL',100,'438',"
                "'AA01-AB(NORDPUMPEN NP 0750)-ZB(000750)-',5,")
                .arg(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]) +
            diaEnSql(dia(-100)) + QLatin1Char(',') + diaEnSql(vence) + QStringLiteral(",'") + cuit +
            QStringLiteral("','EX-2026-77','IT-2026-0099',0)"));
    }
    /// The number of a line of the stock by its declaration and subitem.
    qint64 stockDe(const char *dit, int subitem = 1) {
        return this
            ->valor(QStringLiteral("select id from stock where dit = '%1' and subitem = %2")
                        .arg(QLatin1String(dit))
                        .arg(subitem))
            .toLongLong();
    }
    /// The balances of the first client's lines, in the order of their making.
    std::string saldos() {
        return this
            ->filas(QStringLiteral("select saldo from stock where cuitcliente = '30708123451' order by id"))
            .replace(QLatin1Char('\n'), QLatin1Char(' '))
            .toStdString();
    }
    std::string ultimoAviso() const {
        return this->registro.mensajes.empty() ? "<ninguno>"
                                               : this->registro.mensajes.back().texto.toStdString();
    }
    /// A row of a list as it is seen, "a|b|c".
    static std::string fila(const QTableView *vista, int cual) {
        QStringList textos;
        for (int c = 0; c < vista->model()->columnCount(); ++c)
            textos << vista->model()->index(cual, c).data().toString();
        return textos.join(QLatin1Char('|')).toStdString();
    }
    inline static const QString cliente = QStringLiteral("30708123451");
    inline static const QString otroCliente = QStringLiteral("30693201582");
    static constexpr const char *vigente = "26001IT14000011A";
    static constexpr const char *porVencer = "26001IT14000012B";
    static constexpr const char *vencida = "25001IT14000003C";
};
