#include "frame/store/store.h"

#include <QElapsedTimer>
#include <QUuid>
#include <algorithm>
#include <optional>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/store/dialect.h"
#include "frame/store/engines.h"

using namespace Qt::StringLiterals;

namespace {

/// Names of one length, without regard to capitals. Two names mostly part at their first letter.
bool mismoNombre(QStringView uno, QStringView otro) {
    return std::equal(uno.begin(), uno.end(), otro.begin(),
                      [](QChar a, QChar b) { return a == b || a.toCaseFolded() == b.toCaseFolded(); });
}

std::function<void(const TrazaDeSentencia &)> &traza() {
    static std::function<void(const TrazaDeSentencia &)> actual;
    return actual;
}

/// The engines end a text at its first zero character: what stands behind it, a condition perhaps, would be
/// lost.
void comprobarSinNulos(const QString &sentencia) {
    if (sentencia.contains(QChar::Null)) throw Falla{0, {}, u"La sentencia contiene un carácter nulo."_s, {}};
}

}  // namespace

struct Conexion::Interno {
    explicit Interno(std::unique_ptr<Datos> de)
        : datos(std::move(de)),
          motor(*datos->motor),
          nombre(datos->entidad + QLatin1Char('-') + QUuid::createUuid().toString(QUuid::WithoutBraces)),
          ajustes{&motor.gramatica, {}} {}

    std::unique_ptr<Datos> datos;
    const motores::Motor &motor;
    QString nombre;   ///< Qt's name of the handle
    QSqlDatabase db;  ///< held, because Qt looks a name up under a lock
    bool abierta = false;
    int ligeras = 0;  ///< how many runs asked for light writing
    dialecto::Ajustes ajustes;

    /// What was sent without waiting for its end.
    struct Envio {
        QStringList sentencias, traducidas;
        QElapsedTimer reloj;
        motores::Llegada llegada;  ///< none: nothing is on its way
    };
    Envio enCamino;

    void soltar() {
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(nombre);
    }

    /// Whatever goes to the store passes here.
    void abrir() {
        recoger();
        if (abierta) return;
        try {
            db = motor.abrir(*datos, nombre);
            ajustes.tablasOrdenadas = motor.tablasOrdenadas(db);
            abierta = true;
            if (ligeras > 0) motor.escrituraLigera(db, true);
        } catch (Falla &e) {
            abierta = false;
            soltar();
            e.fuente = datos->entidad;
            throw;
        }
    }

    qint64 correr(const QString &sentencia, const QString &traducida, motores::Filas *filas) {
        const auto &hilo = traza();
        QElapsedTimer reloj;
        if (hilo) reloj.start();
        qint64 cuantas = 0;
        try {
            comprobarSinNulos(traducida);
            cuantas = motor.correr(db, traducida, filas);
        } catch (Falla &e) {
            e.fuente = datos->entidad;
            e.sentencia = sentencia;
            // A store that went away: the next statement opens a new connection.
            if (!motor.vive(db)) cerrar();
            throw;
        }
        if (hilo) hilo({datos->entidad, sentencia, traducida, reloj.nsecsElapsed() / 1000, cuantas});
        return cuantas;
    }

    QStringList traducirSeguidas(const QStringList &sentencias) const {
        QStringList traducidas;
        traducidas.reserve(sentencias.size());
        for (const QString &sentencia : sentencias) {
            traducidas << dialecto::traducir(sentencia, ajustes);
            comprobarSinNulos(sentencia);
        }
        return traducidas;
    }

    [[noreturn]] void fallar(Falla falla, const QString &sentencia) {
        falla.fuente = datos->entidad;
        falla.sentencia = sentencia;
        if (!motor.vive(db)) cerrar();
        throw Falla(std::move(falla));
    }

    std::vector<motores::Filas> consultarSeguidas(const QStringList &sentencias) {
        std::vector<motores::Filas> filas;
        if (sentencias.isEmpty()) return filas;
        abrir();
        const QStringList traducidas = traducirSeguidas(sentencias);
        QElapsedTimer reloj;
        reloj.start();
        std::optional<Falla> falla;
        const qsizetype hechas = motor.consultarSeguidas(db, traducidas, filas, falla);
        if (falla) fallar(*falla, sentencias.value(hechas));
        const auto &hilo = traza();
        const qint64 cadaUna = reloj.nsecsElapsed() / 1000 / sentencias.size();
        for (qsizetype n = 0; hilo && n < hechas; ++n)
            hilo({datos->entidad, sentencias.at(n), traducidas.at(n), cadaUna,
                  filas.at(static_cast<std::size_t>(n)).cuantas()});
        return filas;
    }

    void mandarSeguidas(const QStringList &sentencias) {
        if (sentencias.isEmpty()) return;
        abrir();
        enCamino = {sentencias, traducirSeguidas(sentencias), {}, {}};
        enCamino.reloj.start();
        enCamino.llegada = motor.mandarSeguidas(db, enCamino.traducidas);
    }

    /// Waits for what was sent without waiting. Raises the first failure among it.
    void recoger() {
        if (!enCamino.llegada) return;
        const Envio envio = std::exchange(enCamino, {});
        std::optional<Falla> falla;
        const qsizetype hechas = envio.llegada(falla);
        if (falla) fallar(*falla, envio.sentencias.value(hechas));
        const auto &hilo = traza();
        const qint64 cadaUna = envio.reloj.nsecsElapsed() / 1000 / envio.sentencias.size();
        for (qsizetype n = 0; hilo && n < hechas; ++n)
            hilo({datos->entidad, envio.sentencias.at(n), envio.traducidas.at(n), cadaUna, 1});
    }

    /// The same for who gives up what was sent: nothing is told.
    void abandonar() {
        if (!enCamino.llegada) return;
        std::optional<Falla> falla;
        std::exchange(enCamino, {}).llegada(falla);
    }

    void cerrar() {
        if (!abierta) return;
        abandonar();
        if (ligeras > 0) {
            try {
                motor.escrituraLigera(db, false);
            } catch (const Falla &) {
                // The handle goes all the same; a server that went away is the usual reason to be here.
            }
        }
        abierta = false;
        db.close();
        soltar();
    }
};

Conexion::Conexion(std::unique_ptr<Datos> datos) : i_(std::make_unique<Interno>(std::move(datos))) {}

Conexion::~Conexion() {
    i_->cerrar();
}

bool Conexion::crearrs(Recordset &rs) {
    rs = Recordset();
    i_->abrir();
    motores::Filas filas;
    i_->correr(Sql, dialecto::traducir(Sql, i_->ajustes), &filas);
    rs.tomar(std::move(filas));
    return !rs.Eof();
}

bool Conexion::crearrsActualizable(Recordset &rs, const QString &tabla) {
    rs = Recordset();
    i_->abrir();
    motores::Filas filas;
    i_->correr(Sql, dialecto::conIdentidad(Sql, i_->ajustes), &filas);
    // The identity is the last column, and none of the caller's.
    const std::size_t ancho = filas.nombres.size();
    for (std::size_t f = 0; f + ancho <= filas.celdas.size(); f += ancho) {
        for (std::size_t c = 0; c + 1 < ancho; ++c) rs.celdas_.push_back(std::move(filas.celdas[f + c]));
        rs.identidades_.push_back(filas.celdas[f + ancho - 1]);
    }
    filas.nombres.pop_back();
    rs.nombres_ = std::move(filas.nombres);
    rs.ancho_ = rs.nombres_.size();
    rs.conexion_ = this;
    rs.tabla_ = tabla;
    return !rs.Eof();
}

qint64 Conexion::Ejecutar() {
    i_->abrir();
    return i_->correr(Sql, dialecto::traducir(Sql, i_->ajustes), nullptr);
}

void Conexion::EjecutarSeguidas(const QStringList &sentencias) {
    i_->mandarSeguidas(sentencias);
    i_->recoger();
}

void Conexion::MandarSeguidas(const QStringList &sentencias) {
    i_->mandarSeguidas(sentencias);
}

std::vector<Recordset> Conexion::ConsultarSeguidas(const QStringList &sentencias) {
    std::vector<motores::Filas> filas = i_->consultarSeguidas(sentencias);
    std::vector<Recordset> respuestas(filas.size());
    for (std::size_t n = 0; n < filas.size(); ++n) respuestas[n].tomar(std::move(filas[n]));
    return respuestas;
}

QSqlDatabase Conexion::coneccion() {
    i_->abrir();
    return i_->db;
}

const QString &Conexion::entidad() const {
    return i_->datos->entidad;
}
const QString &Conexion::etiqueta() const {
    return i_->motor.etiqueta;
}
bool Conexion::abierta() const {
    return i_->abierta;
}
void Conexion::cerrar() {
    i_->cerrar();
}

void Conexion::escrituraLigera(bool activa) {
    i_->ligeras += activa ? 1 : -1;
    if (i_->ligeras == (activa ? 1 : 0) && (activa || i_->abierta)) {
        i_->abrir();
        i_->motor.escrituraLigera(i_->db, activa);
    }
}

EscrituraLigera::EscrituraLigera(Conexion &conexion) : conexion_(conexion) {
    try {
        conexion_.escrituraLigera(true);
    } catch (const Falla &) {
        conexion_.escrituraLigera(false);
        throw;
    }
}

EscrituraLigera::~EscrituraLigera() {
    try {
        Terminar();
    } catch (const Falla &) {
        // Nobody is left to tell.
    }
}

void EscrituraLigera::Terminar() {
    if (!activa_) return;
    activa_ = false;
    conexion_.escrituraLigera(false);
}

void Conexion::tablaPropia(const QString &tabla, bool activa) {
    // A connection that was closed has none any more.
    if (!activa && !i_->abierta) return;
    if (!activa) i_->abandonar();
    try {
        i_->abrir();
        (activa ? i_->motor.hacerTablaPropia : i_->motor.quitarTablaPropia)(i_->db, tabla);
    } catch (Falla &e) {
        e.fuente = i_->datos->entidad;
        throw;
    }
}

TablaPropia::TablaPropia(Conexion &conexion, QString tabla) : conexion_(conexion), tabla_(std::move(tabla)) {
    conexion_.tablaPropia(tabla_, true);
}

TablaPropia::~TablaPropia() {
    try {
        conexion_.tablaPropia(tabla_, false);
    } catch (const Falla &) {
        // Nobody is left to tell.
    }
}

void Conexion::fijarTraza(std::function<void(const TrazaDeSentencia &)> nueva) {
    traza() = std::move(nueva);
}

// Recordset

void Recordset::tomar(motores::Filas &&filas) {
    nombres_ = std::move(filas.nombres);
    celdas_ = std::move(filas.celdas);
    ancho_ = nombres_.size();
}

void Recordset::Close() {
    *this = Recordset();
}

int Recordset::columna(QStringView nombre) const {
    // A handful of columns: a walk beats a table. Most names come as the store spells them, and letters told
    // apart by code are compared in a fraction of the time.
    for (std::size_t c = 0; c < nombres_.size(); ++c)
        if (nombre == nombres_[c]) return static_cast<int>(c);
    for (std::size_t c = 0; c < nombres_.size(); ++c)
        if (nombre.size() == nombres_[c].size() && mismoNombre(nombre, nombres_[c]))
            return static_cast<int>(c);
    throw Falla{3265, u"Recordset"_s, u"El conjunto de registros no tiene la columna %1."_s.arg(nombre), {}};
}

QString Recordset::nombreDeColumna(int columna) const {
    if (columna < 0 || static_cast<std::size_t>(columna) >= nombres_.size())
        throw Falla{
            3265, u"Recordset"_s, u"El conjunto de registros no tiene la columna %1."_s.arg(columna), {}};
    return nombres_[static_cast<std::size_t>(columna)];
}

Campo Recordset::Fields(int columna) const {
    if (Eof() || columna < 0 || static_cast<std::size_t>(columna) >= ancho_)
        throw Falla{3021, u"Recordset"_s, u"No hay ningún registro activo."_s, {}};
    return {celdas_[static_cast<std::size_t>(fila_) * ancho_ + static_cast<std::size_t>(columna)]};
}

Campo Recordset::Fields(QStringView nombre) const {
    return Fields(columna(nombre));
}
QString Recordset::Texto(QStringView nombre) const {
    return EsNull(Fields(nombre).Value);
}
double Recordset::Numero(QStringView nombre) const {
    return EsNumero(Fields(nombre).Value);
}
bool Recordset::EsNulo(QStringView nombre) const {
    return Fields(nombre).Value.isNull();
}

void Recordset::Poner(QStringView nombre, const QVariant &valor) {
    if (conexion_ == nullptr || Eof())
        throw Falla{3251, u"Recordset"_s, u"El conjunto de registros no admite cambios."_s, {}};
    const int c = columna(nombre);
    QVariant &celda = celdas_[static_cast<std::size_t>(fila_) * ancho_ + static_cast<std::size_t>(c)];
    const bool ya = std::any_of(pendientes_.begin(), pendientes_.end(),
                                [c](const Pendiente &p) { return p.columna == c; });
    if (!ya) pendientes_.push_back({c, celda});
    celda = valor;
}

void Recordset::olvidar() {
    for (const Pendiente &p : pendientes_)
        celdas_[static_cast<std::size_t>(fila_) * ancho_ + static_cast<std::size_t>(p.columna)] = p.antes;
    pendientes_.clear();
}

void Recordset::Update() {
    if (pendientes_.empty()) return;
    conexion_->i_->abrir();
    Conexion::Interno &conexion = *conexion_->i_;
    QStringList cambios;
    for (const Pendiente &p : pendientes_) {
        const QVariant &valor = Fields(p.columna).Value;
        QString texto;
        if (valor.isNull())
            texto = u"NULL"_s;
        else if (valor.typeId() == QMetaType::QString || valor.typeId() == QMetaType::QDateTime)
            texto = TextoEnComillas(EsNull(valor));
        else
            texto = numeros::aTexto(valor.toDouble());
        cambios << QLatin1Char('"') + nombreDeColumna(p.columna) + "\" = "_L1 + texto;
    }
    // Written for the engine as it is: how a row is found again is the engine's own matter.
    const QString sql = u"update %1 set %2"_s.arg(tabla_, cambios.join(", "_L1));
    qint64 tocadas = 0;
    try {
        tocadas = conexion.motor.cambiarFila(
            [&conexion](const QString &texto, motores::Filas *filas) {
                return conexion.correr(texto, texto, filas);
            },
            sql, identidades_[static_cast<std::size_t>(fila_)]);
    } catch (const Falla &) {
        olvidar();
        throw;
    }
    if (tocadas != 1) {
        olvidar();
        throw Falla{3167, u"Recordset"_s, u"El registro de %1 ya no está en el store."_s.arg(tabla_), sql};
    }
    pendientes_.clear();
}
