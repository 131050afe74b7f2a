#include <algorithm>
#include <optional>

#include "frame/base/texts.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "frame/transaction.h"
#include "header/automotive.h"
#include "operations/exchange.h"
#include "operations/exchangefile.h"
#include "operations/exchangemarks.h"
#include "operations/exchangerelated.h"
#include "operations/operationkey.h"

using namespace Qt::StringLiterals;

namespace intercambio {

namespace {

using L = QLatin1String;

using entidad::internos;

QString condicionDeLaClave(const QString &clave) {
    return " where interno = "_L1 + EnComillas(clave);
}

[[noreturn]] void negarOperacion(const QString &porque) {
    throw Falla{0, fuenteDeArchivo, porque, {}};
}

/// An operation that is there goes away only when nobody works on it and the stock of inputs does not know
/// it.
void comprobarQueSeReemplaza(AppContext &ctx, const QString &clave) {
    Recordset rs;
    if (Consultar(ctx, internos, "select maquina from interno"_L1 + condicionDeLaClave(clave), rs))
        negarOperacion(u"La operación %1 está abierta por la PC %2; ciérrela y vuelva a importarla."_s.arg(
            clave, rs.Texto(u"maquina").trimmed()));
    const bool tomo = Consultar(
        ctx, internos,
        "select top 1 id from stockmov"_L1 + condicionDeLaClave(clave) + " and devuelta is null"_L1, rs);
    if (tomo || Consultar(ctx, internos, "select top 1 id from stock"_L1 + condicionDeLaClave(clave), rs))
        negarOperacion(
            u"La operación %1 tiene movimientos en el stock de insumos y no se reemplaza; impórtela con otra clave."_s
                .arg(clave));
}

/// An operation of the file on its way into the store. One that is left out is walked over.
class Entrada {
 public:
    Entrada(AppContext &ctx, const LectorDeArchivo &lector, Importada &fin, const Plan &plan)
        : ctx_(ctx),
          lector_(lector),
          fin_(fin),
          reemplaza_(plan.decision == Decision::Reemplazar),
          destino_(ctx, fin.destino, true),
          relacionadas_(ctx) {}

    /// Raises Falla, and then nothing of the operation is kept.
    void Comprobar() const {
        const QString defecto = DefectoDeOtraClave(ctx_, fin_.destino);
        if (!reemplaza_ && !defecto.isEmpty()) negarOperacion(defecto);
        if (reemplaza_) comprobarQueSeReemplaza(ctx_, fin_.destino);
    }
    void Tabla() {
        Cerrar();
        if (const TablaRelacionada *relacionada = BuscarTablaRelacionada(lector_.tabla())) {
            relacionadas_.Empezar(*relacionada, lector_.columnas());
            agregar_ = &Entrada::agregarRelacionada;
            return;
        }
        const operacion::Tabla *tabla = operacion::BuscarTabla(lector_.tabla());
        if (tabla == nullptr) negarOperacion(u"La tabla %1 no es de una operación."_s.arg(lector_.tabla()));
        agregar_ = &Entrada::pasarPorAlto;
        // What befell the operation under its own key.
        if (tabla->deSuHistoria && fin_.destino != fin_.clave) return;
        Comenzar();
        destino_.Empezar(*tabla, lector_.columnas());
        agregar_ = &Entrada::agregarPropia;
    }
    void Fila() { (this->*agregar_)(); }
    void Terminar() {
        Cerrar();
        Comenzar();
        if (!HayEnElStore(ctx_, fin_.destino)) negarOperacion(u"Falta su carátula."_s);
        transaccion_->Confirmar();
        transaccion_.reset();
        // The answer of another operation under this key, on this workstation.
        if (!LeerAEC(ctx_, fin_.destino).isEmpty()) GuardarAEC(ctx_, fin_.destino, {});
        fin_.fin = reemplaza_ ? Importada::Fin::Reemplazada : Importada::Fin::Importada;
        if (!destino_.sobrantes().isEmpty())
            fin_.aviso =
                u"La operación %1 trae datos que este store no guarda y quedaron afuera (%2); actualice los "
                "stores con DbUpgrade3."_s.arg(fin_.clave, destino_.sobrantes().join(", "_L1));
    }
    int relacionadas() const { return relacionadas_.agregadas(); }

 private:
    void agregarRelacionada() { relacionadas_.Agregar(lector_.fila()); }
    void agregarPropia() { destino_.Agregar(lector_.fila()); }
    void pasarPorAlto() {}
    void Cerrar() {
        if (agregar_ == &Entrada::agregarRelacionada) relacionadas_.Terminar();
        if (agregar_ == &Entrada::agregarPropia) destino_.Terminar();
        agregar_ = &Entrada::pasarPorAlto;
    }
    /// Parties and articles are kept by themselves, ahead of the operation that names them.
    void Comenzar() {
        if (transaccion_) return;
        transaccion_.emplace(ctx_.conexion(internos));
        destino_.Limpiar();
    }

    AppContext &ctx_;
    const LectorDeArchivo &lector_;
    Importada &fin_;
    bool reemplaza_;
    operacion::Destino destino_;
    DestinoDeRelacionadas relacionadas_;
    std::optional<Transaccion> transaccion_;
    void (Entrada::*agregar_)() = &Entrada::pasarPorAlto;
};

/// The rows of one operation, from its head to its end; what fails in the store ends it and not the file. A
/// store that is gone fails for every operation that is left: raises Falla.
void importarUna(AppContext &ctx, LectorDeArchivo &lector, const Plan &plan, Importada &fin,
                 Importacion &importacion, Marcha &marcha) {
    std::optional<Entrada> entrada;
    const auto intentar = [&](auto hacer) {
        try {
            if (entrada) hacer();
        } catch (const Falla &e) {
            entrada.reset();
            fin.fin = Importada::Fin::SinHacer;
            if (e.numero == Falla::sinStore) throw;
            fin.fin = Importada::Fin::Fallida;
            fin.aviso = u"No se importó la operación %1: %2"_s.arg(fin.clave, e.descripcion);
        }
    };
    fin.fin = Importada::Fin::Omitida;
    if (plan.decision != Decision::Omitir) {
        marcha.decir(fin.clave == fin.destino ? fin.clave : fin.clave + u" → "_s + fin.destino);
        entrada.emplace(ctx, lector, fin, plan);
        intentar([&] { entrada->Comprobar(); });
    }
    for (Registro r = lector.Siguiente(); r != Registro::FinDeOperacion; r = lector.Siguiente()) {
        if (r == Registro::Tabla) intentar([&] { entrada->Tabla(); });
        if (r == Registro::Fila) intentar([&] { entrada->Fila(); });
        if (plan.decision != Decision::Omitir) marcha.paso();
    }
    intentar([&] {
        entrada->Terminar();
        importacion.relacionadas += entrada->relacionadas();
    });
}

Plan planDe(const std::map<QString, Plan> &plan, const QString &clave) {
    const auto p = plan.find(clave);
    return p == plan.end() ? Plan{} : p->second;
}

void importarTodo(AppContext &ctx, const QString &archivo, const std::map<QString, Plan> &plan,
                  const std::function<bool()> &detener, Importacion &r) {
    qint64 filas = 1;
    for (const OperacionEnArchivo &una : LeerContenido(ctx, archivo)) {
        const Plan suyo = planDe(plan, una.clave);
        r.operaciones.push_back(
            {una.clave, suyo.decision == Decision::OtraClave ? suyo.clave.trimmed() : una.clave});
        if (suyo.decision != Decision::Omitir) filas += una.filas;
    }
    Marcha marcha(ctx.dialogos, filas);
    LectorDeArchivo lector(archivo);
    for (Importada &fin : r.operaciones) {
        if (detener && detener()) return;
        if (lector.Siguiente() != Registro::Operacion || lector.clave() != fin.clave)
            negarOperacion(u"El archivo %1 cambió mientras se leía; vuelva a mirarlo."_s.arg(archivo));
        importarUna(ctx, lector, planDe(plan, fin.clave), fin, r, marcha);
    }
}

QString contadas(int cuantas, const QString &una, const QString &varias) {
    return cuantas == 0 ? QString() : (cuantas == 1 ? una : varias).arg(cuantas);
}

}  // namespace

const std::vector<Decision> &DecisionesPosibles(bool existe) {
    static const std::vector<Decision> nueva{Decision::Importar, Decision::Omitir, Decision::OtraClave};
    static const std::vector<Decision> deLaQueEsta{Decision::Omitir, Decision::Reemplazar,
                                                   Decision::OtraClave};
    return existe ? deLaQueEsta : nueva;
}

QString ClaveLibre(AppContext &ctx, const QString &clave, const QStringList &tomadas) {
    for (int n = 2;; ++n) {
        const QString cola = u'-' + QString::number(n);
        QString libre = Recortado(clave, largoDeClave - cola.size()) + cola;
        if (!tomadas.contains(libre, Qt::CaseInsensitive) && !HayEnElStore(ctx, libre)) return libre;
    }
}

QString DefectoDeOtraClave(AppContext &ctx, const QString &clave, const QStringList &tomadas) {
    if (QString defecto = DefectoDeClaveNueva(clave); !defecto.isEmpty()) return defecto;
    if (tomadas.contains(clave, Qt::CaseInsensitive) || HayEnElStore(ctx, clave))
        return u"La operación %1 ya existe; elija otra clave o reemplácela."_s.arg(clave);
    return {};
}

int Importacion::cuantas(Importada::Fin fin) const {
    return static_cast<int>(std::count_if(operaciones.begin(), operaciones.end(),
                                          [fin](const Importada &una) { return una.fin == fin; }));
}

QString Importacion::resumen() const {
    using Fin = Importada::Fin;
    QStringList partes{
        contadas(cuantas(Fin::Importada), u"se importó %1 operación"_s, u"se importaron %1 operaciones"_s),
        contadas(cuantas(Fin::Reemplazada), u"se reemplazó %1"_s, u"se reemplazaron %1"_s),
        contadas(cuantas(Fin::Omitida), u"se omitió %1"_s, u"se omitieron %1"_s),
        contadas(cuantas(Fin::Fallida), u"falló %1"_s, u"fallaron %1"_s),
        contadas(cuantas(Fin::SinHacer), u"quedó %1 sin importar"_s, u"quedaron %1 sin importar"_s)};
    partes.removeAll(QString());
    QString texto = partes.isEmpty() ? u"el archivo no tiene operaciones"_s : partes.join(", "_L1);
    texto[0] = texto.at(0).toUpper();
    return texto + u'.';
}

Importacion Importar(AppContext &ctx, const QString &archivo, const std::map<QString, Plan> &plan,
                     const std::function<bool()> &detener) {
    const Reloj reloj(ctx.dialogos);
    Importacion r;
    try {
        importarTodo(ctx, archivo, plan, detener, r);
    } catch (const Falla &e) {
        r.defecto = e.descripcion;
    }
    return r;
}

}  // namespace intercambio
