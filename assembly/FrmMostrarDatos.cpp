#include "assembly/FrmMostrarDatos.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QTextCursor>

#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmMostrarDatos::FrmMostrarDatos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    ui.TxtDatos->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    mnucopiar = ui.barraDeMenu->addAction(u"&Copiar"_s);
    mnucerrar = ui.barraDeMenu->addAction(u"Ce&rrar"_s);
    Conectar();
}

void FrmMostrarDatos::Conectar() {
    QObject::connect(mnucopiar, &QAction::triggered, ventana.get(), [this] { mnucopiar_Click(); });
    QObject::connect(mnucerrar, &QAction::triggered, ventana.get(), &QDialog::reject);
}

void FrmMostrarDatos::Cargar(const Informe &informe) {
    ventana->setWindowTitle(informe.titulo.isEmpty() ? QApplication::applicationName() : informe.titulo);
    ui.TxtDatos->setPlainText(informe.texto);
    ui.TxtDatos->moveCursor(QTextCursor::Start);
    ui.TxtDatos->setFocus();
}

void FrmMostrarDatos::Mostrar(const Informe &informe) {
    Cargar(informe);
    ventana->exec();
}

void FrmMostrarDatos::mnucopiar_Click() {
    QApplication::clipboard()->setText(ui.TxtDatos->toPlainText());
}
