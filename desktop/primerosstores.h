#pragma once
// The embedded stores of a first start, all of them or none.

#include <QString>
#include <functional>

struct PedidoDeStores {
    QString carpeta;  ///< the profile stands here, the stores in its folder "db"
    QString nombre;   ///< of the profile, and of its file
    bool conDemostracion = false;
};

enum class StoresHechos { Si, Cancelados, No };

/// Makes the stores, with their configuration where the demonstration data are asked for, and the profile
/// that names them. They are made aside and put in their place when they are whole: cancelled or refused,
/// nothing is left of them. A store that stands in the folder already stays as it is. `seguir` hears what is
/// being done and how far (0 to 100); false cancels. `error` is one Spanish sentence when the answer is No.
StoresHechos HacerPrimerosStores(const PedidoDeStores &pedido,
                                 const std::function<bool(const QString &que, int porCiento)> &seguir,
                                 QString &error);
