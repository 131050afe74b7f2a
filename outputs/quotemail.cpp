#include "outputs/quotemail.h"

#include "frame/context.h"
#include "frame/files.h"
#include "outputs/quote.h"
#include "outputs/quotepage.h"
#include "outputs/quotepdf.h"

using namespace Qt::StringLiterals;

QString NombreDelPdf(const QString &interno) {
    return NombreSeguro(u"Presupuesto "_s + interno) + u".pdf"_s;
}

Correo EnviarMail(AppContext &ctx, const Presupuesto &p, const QDate &dia) {
    Correo correo;
    correo.nombreDelRemitente = p.LbDespachante;
    correo.remitente = p.remitente;
    correo.servidor = p.servidor;
    correo.asunto = AsuntoDelPresupuesto(dia);
    correo.cuerpo = PaginaDelPresupuesto(ctx, p, dia);
    correo.destinatario = p.TxtEmail;
    correo.nombreDelDestinatario = p.LbCliente;
    correo.texto = TextoDelPresupuesto(ctx, p, dia);
    correo.adjunto = PresupuestoEnPdf(correo.cuerpo, correo.asunto);
    correo.nombreDelAdjunto = NombreDelPdf(p.interno);
    return correo;
}
