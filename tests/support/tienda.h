#pragma once
// Fresh stores for a test, on the engine of its parameter.

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <deque>
#include <memory>
#include <vector>

#include "frame/context.h"

class Intermediario;

/// The project's source and build folders.
QString CarpetaDeFuentes();
QString CarpetaDeConstruccion();

/// What a scripted user was shown and answered, in order.
struct Registro {
    std::vector<Mensaje> mensajes;
    std::vector<Pregunta> preguntas;
    std::vector<Entrada> entradas;
    std::vector<Informe> informes;
    std::vector<PreguntaConOpciones> conOpciones;
    std::vector<Eleccion> elecciones;
    std::vector<Avance> avances;
    std::vector<PedidoDeArchivo> pedidos;
    std::vector<QString> abiertos;  ///< files handed to the system's programs
    std::vector<QString> enlaces;   ///< addresses handed to the system's browser
    std::vector<papel::Documento> vistos;
    std::vector<papel::Documento> impresos;
    std::deque<bool> respuestas;                ///< consumed by questions; after the last: No
    std::deque<std::optional<QString>> textos;  ///< consumed by input boxes; after the last: cancel
    std::deque<RespuestaConOpciones> opciones;
    std::deque<int> indices;       ///< consumed by lists; after the last: -1
    std::deque<QString> archivos;  ///< consumed by what asks for a file; after the last: cancel
    bool hayPrograma = true;       ///< whether the system has one for a file or an address
    bool imprime = true;           ///< whether what is printed is printed
};
/// Dialogs that write into `registro` and answer from it.
Dialogos DialogosDePrueba(Registro &registro);

/// A profile on its own empty stores at the present version: SQLite files in a temporary folder ("ACCESS"),
/// or a database of the server that `palabras` name ("SQL"; key=value words host, port, user), the run's own
/// one when nobody says another. A missing server fails the test with a sentence that says how to start one.
class Tienda {
 public:
    explicit Tienda(const QString &etiqueta, bool conDemostracion = false,
                    QString palabras = qEnvironmentVariable("ZENDRA_PG"));
    ~Tienda();
    const QString &perfil() const { return perfil_; }
    const QString &carpeta() const { return carpeta_; }

    /// The profile names the proxy as its server from now on, for contexts that begin later; stores of files
    /// stay as they are.
    void PasarPor(const Intermediario &linea);
    /// The profile names the server itself again.
    void IrDerecho();

    /// A context on these stores, with the recorder's dialogs and a settings area of its own.
    std::unique_ptr<AppContext> contexto(Registro &registro) const;

 private:
    QTemporaryDir dir_;
    QString carpeta_, perfil_, base_;
    QString palabras_;
};

/// Base of tests that run on both stores: TEST_P over EnAmbos.
class EnAmbosStores : public ::testing::TestWithParam<const char *> {
 protected:
    void SetUp() override;
    void TearDown() override;
    /// Sends a statement to INTERNOS, or to another entity; rows touched.
    qint64 ejecutar(const QString &sql, const QString &entidad = QStringLiteral("INTERNOS"));
    /// The first column of the first row as text; "<nada>" without a row.
    QString valor(const QString &sql, const QString &entidad = QStringLiteral("INTERNOS"));
    /// Every row as "a|b|c", joined by "\n"; numbers in their shortest text, nulls as "<null>".
    QString filas(const QString &sql, const QString &entidad = QStringLiteral("INTERNOS"));
    virtual bool conDemostracion() const { return false; }
    /// The words of the server where the stores lie.
    virtual QString palabrasDelServidor() const { return qEnvironmentVariable("ZENDRA_PG"); }
    /// Ahead of the context's first look at the profile.
    virtual void AlHacerLaTienda() {}

    std::unique_ptr<Tienda> tienda;
    Registro registro;
    std::unique_ptr<AppContext> ctx;
};
#define EN_AMBOS_STORES(Fixture)                             \
    INSTANTIATE_TEST_SUITE_P(                                \
        Stores, Fixture, ::testing::Values("ACCESS", "SQL"), \
        [](const ::testing::TestParamInfo<const char *> &caso) { return std::string(caso.param); })
