// Preloaded by ./run on a machine without a display: a socket bound to every address is bound to the loopback
// address instead. Qt's VNC platform offers no choice of address and no password, and the screens show the
// figures of a broker's clients. Can go when the platform takes an address.
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstring>

extern "C" __attribute__((visibility("default"))) int bind(int descriptor, const sockaddr *address,
                                                           socklen_t length) {
    using Bind = int (*)(int, const sockaddr *, socklen_t);
    static const Bind siguiente = reinterpret_cast<Bind>(dlsym(RTLD_NEXT, "bind"));
    if (address->sa_family == AF_INET && length >= sizeof(sockaddr_in)) {
        sockaddr_in local{};
        std::memcpy(&local, address, sizeof local);
        if (local.sin_addr.s_addr == htonl(INADDR_ANY)) local.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return siguiente(descriptor, reinterpret_cast<const sockaddr *>(&local), sizeof local);
    }
    if (address->sa_family == AF_INET6 && length >= sizeof(sockaddr_in6)) {
        sockaddr_in6 local{};
        std::memcpy(&local, address, sizeof local);
        if (IN6_IS_ADDR_UNSPECIFIED(&local.sin6_addr)) {
            // The IPv4 loopback, in the form that a socket of both families understands.
            local.sin6_addr.s6_addr[10] = local.sin6_addr.s6_addr[11] = 0xff;
            local.sin6_addr.s6_addr[12] = 127;
            local.sin6_addr.s6_addr[15] = 1;
        }
        return siguiente(descriptor, reinterpret_cast<const sockaddr *>(&local), sizeof local);
    }
    return siguiente(descriptor, address, length);
}
