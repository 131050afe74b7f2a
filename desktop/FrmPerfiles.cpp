#include "desktop/FrmPerfiles.h"

#include <QDir>
#include <QHeaderView>

#include "frame/ui/estilo.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

FrmPerfiles::FrmPerfiles() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    estilo::PrepararGrilla(ui.LstPerfiles, {u"Perfil"_s, u"Archivo"_s});
    ui.LstPerfiles->horizontalHeader()->setStretchLastSection(true);
    Conectar();
}

void FrmPerfiles::Conectar() {
    QObject::connect(ui.cmdAceptar, &QPushButton::clicked, ventana.get(), &QDialog::accept);
    QObject::connect(ui.cmdCancelar, &QPushButton::clicked, ventana.get(), &QDialog::reject);
    QObject::connect(ui.LstPerfiles, &QTableWidget::cellDoubleClicked, ventana.get(), &QDialog::accept);
    EscucharTeclas(ui.LstPerfiles, [this](QKeyEvent *tecla) {
        if (!EsEnter(tecla)) return false;
        ventana->accept();
        return true;
    });
}

void FrmPerfiles::Cargar(const std::vector<PerfilEncontrado> &perfiles) {
    ui.LstPerfiles->setRowCount(static_cast<int>(perfiles.size()));
    int fila = 0;
    for (const PerfilEncontrado &perfil : perfiles) {
        estilo::PonerCelda(ui.LstPerfiles, fila, 0, perfil.nombre);
        estilo::PonerCelda(ui.LstPerfiles, fila, 1, QDir::toNativeSeparators(perfil.ruta));
        ++fila;
    }
    ui.LstPerfiles->resizeColumnToContents(0);
    ui.LstPerfiles->setCurrentCell(0, 0);
    ui.LstPerfiles->setFocus();
}

int FrmPerfiles::Elegir(const std::vector<PerfilEncontrado> &perfiles) {
    Cargar(perfiles);
    return ventana->exec() == QDialog::Accepted ? ui.LstPerfiles->currentRow() : -1;
}
