# Writes the day of the build into the header ARCHIVO, and only when it is another one, so that nothing is built
# again for it within a day. SOURCE_DATE_EPOCH, where it is set, is the day (CMake sees to that), which makes two
# builds of the same sources alike.
string(TIMESTAMP dia "%d-%m-%Y" UTC)
file(CONFIGURE OUTPUT "${ARCHIVO}" CONTENT "#define ZENDRA_FECHA_DE_GENERACION \"${dia}\"\n")
