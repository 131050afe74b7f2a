#include "tests/screens/caidas_pantalla.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>

#include "frame/base/numbers.h"
#include "tests/support/retrato.h"

using namespace Qt::StringLiterals;

namespace {

/// What the fields of a window hold, by their names.
std::map<QString, QString> camposDe(const QWidget *ventana) {
    std::map<QString, QString> campos;
    for (const QWidget *w : ventana->findChildren<QWidget *>()) {
        if (w->objectName().isEmpty() || !w->isVisible()) continue;
        if (const auto *linea = qobject_cast<const QLineEdit *>(w))
            campos[w->objectName()] = linea->text();
        else if (const auto *caja = qobject_cast<const QComboBox *>(w))
            campos[w->objectName()] = caja->currentText();
        else if (const auto *llano = qobject_cast<const QPlainTextEdit *>(w))
            campos[w->objectName()] = llano->toPlainText();
        else if (const auto *rico = qobject_cast<const QTextEdit *>(w))
            campos[w->objectName()] = rico->toPlainText();
    }
    return campos;
}

/// A save may put a figure into its form and a text into capitals.
bool loMismo(const QString &antes, const QString &despues) {
    if (antes.trimmed().compare(despues.trimmed(), Qt::CaseInsensitive) == 0) return true;
    return numeros::esNumerico(antes) && numeros::esNumerico(despues) &&
           qFuzzyCompare(1 + numeros::aNumero(antes), 1 + numeros::aNumero(despues));
}

}  // namespace

void EnCaidas::SetUp() {
    EnPantalla::SetUp();
    // Nobody starts the server again before the user has read the message.
    constexpr std::chrono::milliseconds unMomento(150);
    Conexion::fijarEspera(unMomento);
    ctx->SeparadorDecimal = u',';
}

void EnCaidas::AlHacerLaTienda() {
    linea_.emplace(0, palabrasDelServidor());
    tienda->PasarPor(*linea_);
}

void EnCaidas::TearDown() {
    Conexion::fijarTraza({});
    constexpr std::chrono::seconds comoSiempre(3);
    Conexion::fijarEspera(comoSiempre);
    volver();
    EnPantalla::TearDown();
    linea_.reset();
}

void EnCaidas::caer(const MomentoDeCaida &caida) {
    if (caida.servidor) {
        ServidorDePaso().parar(ServidorPropio::Parada::Inmediata);
        return;
    }
    linea_->Rechazar();
    linea_->Cortar();
}

void EnCaidas::volver() {
    ServidorDePaso();
    if (linea_) linea_->Seguir();
}

EnCaidas::Hecho EnCaidas::hacer(const AccionDeUsuario &accion, std::optional<MomentoDeCaida> caida) {
    return representar(accion, caida ? Que::Caida : Que::Nada, caida.value_or(MomentoDeCaida{}));
}

EnCaidas::Hecho EnCaidas::hacerTrasElReposo(const AccionDeUsuario &accion) {
    return representar(accion, Que::Reposo, {});
}

EnCaidas::Hecho EnCaidas::representar(const AccionDeUsuario &accion, Que que, MomentoDeCaida caida) {
    TearDown();
    SetUp();
    Hecho hecho;
    if (accion.preparar) accion.preparar();
    registro = {};
    bool listo = false;
    const std::function<void()> mirar = [&] {
        if (listo) return;
        QWidget *ventana = accion.ventana();
        if (ventana == nullptr || !ventana->isVisible()) {
            QTimer::singleShot(5, qApp, mirar);
            return;
        }
        esperarVentana(ventana);
        enEscena(accion, que, caida, hecho);
        listo = true;
        dejar(accion);
    };
    QTimer::singleShot(5, qApp, mirar);
    accion.abrir();
    hasta([&listo] { return listo; });
    listo = true;
    Conexion::fijarTraza({});
    volver();
    pantallas::CerrarTodas();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    hecho.retrato = Retrato(*ctx);
    return hecho;
}

void EnCaidas::enEscena(const AccionDeUsuario &accion, Que que, MomentoDeCaida caida, Hecho &hecho) {
    const QPointer<QWidget> ventana = accion.ventana();
    if (accion.teclear) accion.teclear();
    const auto campos = camposDe(ventana);
    registro.mensajes.clear();
    registro.preguntas.clear();
    if (que == Que::Reposo) ServidorDePaso().reiniciar(ServidorPropio::Parada::Inmediata);
    const auto contar = [&](const TrazaDeSentencia &) {
        if (++hecho.sentencias == caida.sentencias && que == Que::Caida && !hecho.cayo) {
            hecho.cayo = true;
            caer(caida);
        }
    };
    if (que == Que::Caida && caida.sentencias == 0) {
        hecho.cayo = true;
        caer(caida);
    }
    Conexion::fijarTraza(contar);
    accion.llave();
    Conexion::fijarTraza({});
    bool fallo = false;
    for (const Mensaje &m : registro.mensajes) {
        hecho.dicho << m.texto;
        fallo = fallo || m.icono == Icono::Critico || m.texto.contains("con la base"_L1);
    }
    hecho.preguntas = registro.preguntas.size();
    for (const Pregunta &p : registro.preguntas)
        fallo = fallo || p.texto.contains("no pueden ser guardados"_L1);
    if (que == Que::Caida && fallo) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        // Gone with its work done: the store tells whether it was.
        if (ventana == nullptr || !ventana->isVisible()) return;
        const auto ahora = camposDe(ventana);
        for (const auto &[campo, texto] : campos) {
            const auto suyo = ahora.find(campo);
            const QString queda = suyo == ahora.end() ? u"(gone)"_s : suyo->second;
            if (!loMismo(texto, queda))
                hecho.vaciados << u"%1 held \"%2\" and holds \"%3\""_s.arg(campo, texto, queda);
        }
        volver();
        hecho.alFallar = Retrato(*ctx);
        registro.mensajes.clear();
        esperarVentana(ventana);
        accion.llave();
        QStringList otra;
        for (const Mensaje &m : registro.mensajes)
            if (m.icono == Icono::Critico && (accion.admite.isEmpty() || !m.texto.startsWith(accion.admite)))
                otra << m.texto;
        EXPECT_EQ(otra.join(" / "_L1).toStdString(), "") << "the next try works";
    }
    if (accion.visto) hecho.visto = accion.visto();
}

void EnCaidas::dejar(const AccionDeUsuario &accion) {
    volver();
    // Whoever is asked whether to leave without saving says yes.
    registro.respuestas.assign(8, true);
    for (int veces = 0; veces < 4; ++veces) {
        QWidget *ventana = accion.ventana();
        if (ventana == nullptr || !ventana->isVisible()) return;
        if (QApplication::activeWindow() == nullptr) esperarVentana(ventana);
        tecla(Qt::Key_Escape);
        QCoreApplication::processEvents();
    }
    QWidget *ventana = accion.ventana();
    if (ventana == nullptr || !ventana->isVisible()) return;
    ADD_FAILURE() << "ESC does not leave it";
    if (auto *dialogo = qobject_cast<QDialog *>(ventana))
        dialogo->done(QDialog::Rejected);
    else
        ventana->hide();
}
