#include "header/FrmLstDiv.h"

#include "frame/context.h"
#include "frame/entities.h"
#include "frame/ui/eventos.h"
#include "frame/ui/ventana.h"
#include "header/comments.h"

using namespace Qt::StringLiterals;

FrmLstDiv::FrmLstDiv() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    Conectar();
}

void FrmLstDiv::Conectar() {
    Escuchar(ventana.get(), [this](QEvent *evento) {
        const bool escape = evento->type() == QEvent::KeyPress &&
                            static_cast<const QKeyEvent *>(evento)->key() == Qt::Key_Escape;
        if (!escape && (evento->type() != QEvent::Close || !ventana->isVisible())) return false;
        evento->setAccepted(escape);
        Form_Escape();
        return true;
    });
}

void FrmLstDiv::Mostrar(const QString &interno) {
    AppContext &ctx = Contexto();
    QString habia;
    if (!Manejar(ctx, [&] { habia = LeerComentario(ctx, interno); })) return;
    interno_ = interno;
    ventana->setWindowTitle(u"Comentarios - Operación "_s + interno);
    ui.TxtCom->setPlainText(habia);
    ui.TxtCom->setFocus();
    ventana->exec();
}

void FrmLstDiv::Form_Escape() {
    AppContext &ctx = Contexto();
    bool grabado = false;
    const bool seFue = SeFueElStore(ctx, entidad::systablas, [&] {
        grabado = GrabarComentario(ctx, interno_, ui.TxtCom->toPlainText());
    });
    // What else could not be written was told with the store's words; a second ESC would meet the same.
    if (grabado || !seFue) ventana->accept();
}
