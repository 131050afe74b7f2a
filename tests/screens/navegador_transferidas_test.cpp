// What the browser tells of the hand-over of its operations, and its popup, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "operations/FrmInternoNew.h"
#include "outputs/declaration.h"
#include "outputs/handedover.h"
#include "outputs/transfer.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int columnaDeEntrega = 6;

class NavegadorConEntregas : public EnPantalla {
 protected:
    static FrmInternoNew &mostrarTodas() {
        auto &navegador = Pantalla<FrmInternoNew>();
        navegador.Mostrar();
        esperarVentana(navegador.ventana.get());
        tecla(Qt::Key_Return);
        return navegador;
    }
    void transferir(const QString &clave) {
        const DocumentoEscrito escrito =
            EscribirTransferencia(LeerDeclaracion(*ctx, clave), tienda->carpeta() + u'/' + clave + u".xml"_s);
        ASSERT_TRUE(escrito.hecho) << escrito.aviso.toStdString();
        AnotarEntrega(*ctx, clave, escrito);
    }
    static QStringList claves(const FrmInternoNew &navegador) {
        QStringList todas;
        const QAbstractItemModel *modelo = navegador.ui.lstInterno->model();
        for (int fila = 0; fila < modelo->rowCount(); ++fila)
            todas << modelo->index(fila, 1).data().toString();
        return todas;
    }
    static QModelIndex celda(FrmInternoNew &navegador, const QString &clave) {
        EXPECT_TRUE(navegador.Seleccionar(clave));
        return navegador.ui.lstInterno->currentIndex().siblingAtColumn(columnaDeEntrega);
    }
    /// A key to the popup that stands.
    static void enElPopup(int tecla) {
        QWidget *popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr) << "no popup stands";
        QTest::keyClick(popup, static_cast<Qt::Key>(tecla));
        QCoreApplication::processEvents();
    }
    const QString impoEntregada = u"IC-2026-0001"_s;
    const QString expoEntregada = u"EC-2026-0002"_s;
};
EN_AMBOS_STORES(NavegadorConEntregas);

TEST_P(NavegadorConEntregas, AnOperationThatWasHandedOverSaysSoAndWhetherItChangedSince) {
    transferir(impoEntregada);
    transferir(expoEntregada);
    ejecutar(u"update caratula set fobdivisas = 77 where interno = 'IC-2026-0001'"_s);
    auto &navegador = mostrarTodas();
    // The list is there at once; what was changed is found behind it.
    EXPECT_EQ(celda(navegador, expoEntregada).data().toString(), u"transferida"_s);
    EXPECT_EQ(celda(navegador, u"DJAI-2026-0004"_s).data().toString(), QString());
    hasta([&] {
        return celda(navegador, impoEntregada).data().toString() == u"transferida, cambiada después"_s;
    });
    EXPECT_EQ(celda(navegador, expoEntregada).data().toString(), u"transferida"_s);
    EXPECT_TRUE(celda(navegador, expoEntregada)
                    .data(Qt::ToolTipRole)
                    .toString()
                    .endsWith(u" por la PC PC1 en %1/EC-2026-0002.xml"_s.arg(tienda->carpeta())));
    // Set back, it is as it was handed over.
    transferir(impoEntregada);
    navegador.BuscarInternos();
    QTest::qWait(600);
    EXPECT_EQ(celda(navegador, impoEntregada).data().toString(), u"transferida"_s);
}

TEST_P(NavegadorConEntregas, WhileKeysComeNothingIsCompared) {
    transferir(impoEntregada);
    ejecutar(u"update caratula set fobdivisas = 77 where interno = 'IC-2026-0001'"_s);
    auto &navegador = mostrarTodas();
    for (int veces = 0; veces < 12; ++veces) {
        tecla(veces % 2 == 0 ? Qt::Key_Down : Qt::Key_Up);
        QTest::qWait(30);
        const QAbstractItemModel *modelo = navegador.ui.lstInterno->model();
        for (int fila = 0; fila < modelo->rowCount(); ++fila)
            EXPECT_NE(modelo->index(fila, columnaDeEntrega).data().toString(),
                      u"transferida, cambiada después"_s);
    }
}

TEST_P(NavegadorConEntregas, ThePopupComesByItsKeysAndChoosesByTheHandOver) {
    transferir(impoEntregada);
    auto &navegador = mostrarTodas();
    const QStringList todas = claves(navegador);
    EXPECT_EQ(navegador.ui.lbTituloOperaciones->text(), u"Operaciones"_s);
    tecla(Qt::Key_Menu);
    EXPECT_TRUE(navegador.MnuTodo->isChecked());
    enElPopup(Qt::Key_R);
    EXPECT_EQ(claves(navegador), QStringList{impoEntregada});
    EXPECT_EQ(navegador.ui.lbTituloOperaciones->text(), u"Operaciones transferidas"_s);
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.lstInterno);
    tecla(Qt::Key_F10);
    EXPECT_TRUE(navegador.MnuTransferidos->isChecked());
    enElPopup(Qt::Key_P);
    EXPECT_EQ(claves(navegador).size(), todas.size() - 1);
    EXPECT_FALSE(claves(navegador).contains(impoEntregada));
    EXPECT_EQ(navegador.ui.lbTituloOperaciones->text(), u"Operaciones pendientes de transferir"_s);
    // A new search keeps the choice.
    teclaEn(navegador.ui.txtInterno, Qt::Key_Return);
    EXPECT_FALSE(claves(navegador).contains(impoEntregada));
    tecla(Qt::Key_F10, Qt::ShiftModifier);
    enElPopup(Qt::Key_T);
    EXPECT_EQ(claves(navegador), todas);
    EXPECT_EQ(navegador.ui.lbTituloOperaciones->text(), u"Operaciones"_s);
}

TEST_P(NavegadorConEntregas, ThePopupsOtherEntriesActOnTheRowByTheirLetters) {
    auto &navegador = mostrarTodas();
    tecla(Qt::Key_Menu);
    enElPopup(Qt::Key_E);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Confirma eliminar el interno DJAI-2026-0004"_s);
    tecla(Qt::Key_Menu);
    enElPopup(Qt::Key_N);
    EXPECT_EQ(registro.entradas.size(), 1U);
    tecla(Qt::Key_Menu);
    enElPopup(Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(navegador.ventana->isVisible()) << "ESC leaves the popup alone";
}

TEST_P(NavegadorConEntregas, TheTransferredOnesAreListedInPreviewByAKey) {
    mostrarTodas();
    tecla(Qt::Key_F11);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"No hay operaciones transferidas; una lo está cuando se escribió su declaración."_s);
    transferir(impoEntregada);
    transferir(expoEntregada);
    transferir(expoEntregada);
    ejecutar(u"update caratula set fobdivisas = 77 where interno = 'IC-2026-0001'"_s);
    // Of one moment: by key then.
    ejecutar(
        u"update transferidas set fecha = "_s +
        ctx->DataManager.getDateFormatbyEntity(u"INTERNOS"_s, QDateTime(QDate(2026, 3, 9), QTime(14, 5))));
    tecla(Qt::Key_F11);
    ASSERT_EQ(registro.vistos.size(), 1U);
    const papel::Tabla &tabla = *registro.vistos[0].tabla;
    EXPECT_EQ(tabla.titulo, u"Operaciones transferidas"_s);
    EXPECT_EQ(tabla.subtitulo, u"2 operaciones, 1 cambiada después"_s);
    QStringList filasDeLaLista;
    for (const papel::Fila &fila : tabla.filas) {
        QStringList celdas;
        for (const std::size_t c : {0U, 1U, 3U, 4U, 5U, 6U}) celdas << fila.celdas.at(c).toString();
        filasDeLaLista << celdas.join(u'|');
    }
    EXPECT_EQ(filasDeLaLista, (QStringList{u"EC-2026-0002|EC01|09/03/2026 14:05|PC1|2|sin cambios"_s,
                                           u"IC-2026-0001|IC04|09/03/2026 14:05|PC1|1|cambiada después"_s}));
}

}  // namespace
