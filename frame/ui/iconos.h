#pragma once
// The program's pictures, painted from paths so that they are sharp at every scale.

#include <QIcon>
#include <QPixmap>

enum class Dibujo {
    Operacion,
    Clientes,
    Nomenclador,
    Catalogos,
    Configuracion,
    Exportar,
    Importar,
    Formulario,
    Otros,
    Crear,
    Copiar,
    Borrar,
    Buscar,
    Imprimir,
    PasoPendiente,
    PasoCorriendo,
    PasoHecho
};

/// The picture for 1, 2 and 3 pixels a point, and its greyed form.
QIcon IconoDe(Dibujo dibujo);
/// The picture in `lado` points, for the scale of the screen it stands on.
QPixmap Imagen(Dibujo dibujo, int lado, qreal escala);
