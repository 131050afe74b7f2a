#include "header/FrmLstDiv.h"

#include "frame/ui/ventana.h"
#include "header/comments.h"

using namespace Qt::StringLiterals;

FrmLstDiv::FrmLstDiv() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
}

void FrmLstDiv::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    QString habia;
    if (!Manejar(ctx, [&] { habia = LeerComentario(ctx, interno); })) return;
    ventana->setWindowTitle(u"Comentarios - Operación "_s + interno);
    ui.TxtCom->setPlainText(habia);
    ui.TxtCom->setFocus();
    ventana->exec();
    GrabarComentario(ctx, interno, ui.TxtCom->toPlainText());
}
