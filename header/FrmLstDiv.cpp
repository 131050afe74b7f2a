#include "header/FrmLstDiv.h"

#include "frame/ui/ventana.h"
#include "header/comments.h"

FrmLstDiv::FrmLstDiv() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
}

void FrmLstDiv::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    QString habia;
    if (!Manejar(ctx, [&] { habia = LeerComentario(ctx, interno); })) return;
    ventana->setWindowTitle(QStringLiteral("Comentarios - Operación ") + interno);
    ui.TxtCom->setPlainText(habia);
    ui.TxtCom->setFocus();
    ventana->exec();
    GrabarComentario(ctx, interno, ui.TxtCom->toPlainText());
}
