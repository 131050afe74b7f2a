// The quote leaves its screen: seen, saved and sent.

#include <QDir>
#include <QFileInfo>

#include "frame/files.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/ventana.h"
#include "outputs/FrmPresupuesto.h"
#include "outputs/FrmProcesando.h"
#include "outputs/quotemail.h"
#include "outputs/quotepage.h"
#include "outputs/quotepdf.h"

using namespace Qt::StringLiterals;

namespace {

const QString seccionDelPdf = u"PRESUPUESTO"_s;  ///< of the settings area

/// The field that a message speaks of.
void volverA(QLineEdit *campo) {
    campo->setFocus();
    campo->selectAll();
}

}  // namespace

bool FrmPresupuesto::ExigirPase() {
    if (HayPase(p_)) return true;
    Contexto().dialogos.advertir(u"Debe ingresar el tipo pase"_s);
    volverA(ui.TxtPase);
    return false;
}

void FrmPresupuesto::Abrir(QString (*escribir)(AppContext &, const Presupuesto &)) {
    AppContext &ctx = Contexto();
    QString archivo;
    Manejar(ctx, [&] {
        const Reloj reloj(ctx.dialogos);
        archivo = escribir(ctx, p_);
    });
    if (archivo.isEmpty()) return;
    const QString ruta = QDir::toNativeSeparators(archivo);
    ui.LbArchivo->setText(ruta);
    const bool enOtraParte = QFileInfo(archivo).absolutePath() != QFileInfo(ctx.ProgramFolder).absolutePath();
    if (enOtraParte && archivo != dicho_) {
        ctx.dialogos.informar(
            u"La carpeta del programa no admite archivos; el presupuesto se escribió en %1."_s.arg(ruta));
        dicho_ = archivo;
    }
    if (!ctx.dialogos.abrirArchivo(archivo))
        ctx.dialogos.advertir(
            u"El sistema no tiene con qué abrir el presupuesto, que está en %1; ábralo desde allí."_s.arg(
                ruta));
}

void FrmPresupuesto::SENDPREVW() {
    Leer();
    if (ExigirPase()) Abrir(EscribirVista);
}

void FrmPresupuesto::SENDEMAIL() {
    AppContext &ctx = Contexto();
    Leer();
    if (!ctx.dialogos.preguntar({u"Desea enviar el mail, antes de la vista preliminar (F12)?"_s, {}})) return;
    if (!ExigirPase()) return;
    if (!EsDireccionValida(p_.TxtEmail)) {
        ctx.dialogos.advertir(u"Dirección de Correo no válido (Email)"_s);
        volverA(ui.TxtEmail);
        return;
    }
    if (p_.porOutlook) {
        Abrir(EscribirEml);
        return;
    }
    Correo correo;
    const bool armado = Manejar(ctx, [&] {
        const Reloj reloj(ctx.dialogos);
        correo = EnviarMail(ctx, p_, QDate::currentDate());
    });
    if (!armado) return;
    Pantalla<FrmProcesando>().Enviar(correo);
    CerrarPantalla<FrmProcesando>();
}

void FrmPresupuesto::CmdPDF_Click() {
    AppContext &ctx = Contexto();
    Leer();
    if (!ExigirPase()) return;
    const QString titulo = u"Guardar el presupuesto como PDF"_s;
    const QDir carpeta(CarpetaDeArchivos(ctx, seccionDelPdf));
    const QString archivo = ctx.dialogos.guardarComo(
        {titulo, carpeta.filePath(NombreDelPdf(p_.interno)), u"Documentos PDF (*.pdf)"_s});
    if (archivo.isEmpty() || !PuedeReemplazarse(ctx, archivo, titulo)) return;
    Manejar(ctx, [&] {
        const Reloj reloj(ctx.dialogos);
        const QString defecto = EscribirPresupuestoPdf(ctx, p_, archivo);
        if (!defecto.isEmpty())
            ctx.dialogos.critico(defecto, titulo);
        else {
            RecordarCarpeta(ctx, seccionDelPdf, archivo);
            ctx.dialogos.informar(
                u"Se escribió el presupuesto en %1."_s.arg(QDir::toNativeSeparators(archivo)), titulo);
        }
    });
}
