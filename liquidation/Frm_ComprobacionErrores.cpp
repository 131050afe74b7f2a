#include "liquidation/Frm_ComprobacionErrores.h"

#include "frame/ui/ventana.h"

using namespace Qt::StringLiterals;

Frm_ComprobacionErrores::Frm_ComprobacionErrores() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    ui.LstReporte->setAlternatingRowColors(true);
}

void Frm_ComprobacionErrores::Cargar(const Informe &informe) {
    ventana->setWindowTitle(informe.titulo);
    ui.LstReporte->clear();
    ui.LstReporte->addItems(informe.texto.split(u"\r\n"_s));
    ui.LstReporte->setCurrentRow(0);
    ui.LstReporte->setFocus();
}

void Frm_ComprobacionErrores::Mostrar(const Informe &informe) {
    Cargar(informe);
    ventana->exec();
}
