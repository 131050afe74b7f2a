#include "frame/store/store.h"

#include <algorithm>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/store/channel.h"
#include "frame/store/engines.h"

using namespace Qt::StringLiterals;

namespace {

/// Names of one length, without regard to capitals. Two names mostly part at their first letter.
bool mismoNombre(QStringView uno, QStringView otro) {
    return std::equal(uno.begin(), uno.end(), otro.begin(),
                      [](QChar a, QChar b) { return a == b || a.toCaseFolded() == b.toCaseFolded(); });
}

}  // namespace

Conexion::Conexion(std::unique_ptr<Datos> datos)
    : canal_(std::make_unique<motores::Canal>(std::move(datos))) {}

Conexion::~Conexion() = default;

bool Conexion::crearrs(Recordset &rs) {
    rs = Recordset();
    motores::Filas filas;
    if (auto anticipada = canal_->TomarAnticipada(Sql)) {
        filas = *std::move(anticipada);
    } else {
        canal_->Abrir();
        canal_->Correr(Sql, canal_->Traducir(Sql), &filas);
    }
    rs.tomar(std::move(filas));
    return !rs.Eof();
}

bool Conexion::crearrsActualizable(Recordset &rs, const QString &tabla) {
    rs = Recordset();
    canal_->Abrir();
    motores::Filas filas;
    canal_->Correr(Sql, canal_->ConIdentidad(Sql), &filas);
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
    canal_->Abrir();
    return canal_->Correr(Sql, canal_->Traducir(Sql), nullptr);
}

void Conexion::Mandar() {
    canal_->Mandar(Sql);
}

void Conexion::Asentar() {
    canal_->Asentar();
}

void Conexion::EjecutarSeguidas(const QStringList &sentencias) {
    canal_->MandarSeguidas(sentencias);
    canal_->Asentar();
}

void Conexion::MandarSeguidas(const QStringList &sentencias) {
    canal_->MandarSeguidas(sentencias);
}

std::vector<Recordset> Conexion::ConsultarSeguidas(const QStringList &sentencias) {
    std::vector<motores::Filas> filas = canal_->ConsultarSeguidas(sentencias);
    std::vector<Recordset> respuestas(filas.size());
    for (std::size_t n = 0; n < filas.size(); ++n) respuestas[n].tomar(std::move(filas[n]));
    return respuestas;
}

void Conexion::Anticipar(const QStringList &sentencias) {
    canal_->Anticipar(sentencias);
}

void Conexion::OlvidarAnticipos() {
    canal_->OlvidarAnticipos();
}

QSqlDatabase Conexion::coneccion() {
    return canal_->Manija();
}

const QString &Conexion::entidad() const {
    return canal_->datos().entidad;
}
const QString &Conexion::etiqueta() const {
    return canal_->motor().etiqueta;
}
bool Conexion::abierta() const {
    return canal_->abierto();
}
std::optional<Falla> Conexion::perdida() {
    return canal_->Perdida();
}
void Conexion::cerrar() {
    canal_->Cerrar();
}

void Conexion::escrituraLigera(bool activa) {
    canal_->EscribirLigero(activa);
}

void Conexion::retenerSesion(bool activa) {
    canal_->RetenerSesion(activa);
}

EscrituraLigera::EscrituraLigera(Conexion &conexion) : conexion_(conexion) {
    conexion_.escrituraLigera(true);
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

LecturaAdelantada::LecturaAdelantada(Conexion &conexion, std::vector<QStringList> porVuelta)
    : conexion_(conexion), porVuelta_(std::move(porVuelta)) {}

LecturaAdelantada::~LecturaAdelantada() {
    conexion_.OlvidarAnticipos();
}

void LecturaAdelantada::Vuelta() {
    if (vuelta_++ < hasta_ || hasta_ == porVuelta_.size()) return;
    constexpr std::size_t tramo = 64;
    QStringList sentencias;
    for (const std::size_t fin = std::min(hasta_ + tramo, porVuelta_.size()); hasta_ < fin; ++hasta_)
        sentencias << porVuelta_[hasta_];
    conexion_.OlvidarAnticipos();
    conexion_.Anticipar(sentencias);
}

void Conexion::tablaPropia(const QString &tabla, bool activa) {
    const motores::Motor &motor = canal_->motor();
    // A connection that was closed has none any more.
    if (!activa) canal_->RetenerSesion(false);
    if (!activa && !canal_->abierto()) return;
    try {
        (activa ? motor.hacerTablaPropia : motor.quitarTablaPropia)(canal_->Manija(), tabla);
    } catch (Falla &e) {
        e.fuente = entidad();
        throw;
    }
    if (activa) canal_->RetenerSesion(true);
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

void Conexion::fijarEspera(std::chrono::milliseconds espera) {
    motores::EsperaDelServidor() = espera;
}

void Conexion::fijarTraza(std::function<void(const TrazaDeSentencia &)> nueva) {
    TrazaDelProceso() = std::move(nueva);
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
    motores::Canal &canal = *conexion_->canal_;
    canal.Abrir();
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
        tocadas = canal.motor().cambiarFila(
            [&canal](const QString &texto, motores::Filas *filas) {
                return canal.Correr(texto, texto, filas);
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
