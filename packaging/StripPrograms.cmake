# SPDX-License-Identifier: GPL-3.0-or-later
# Before the package is put together. Debian's programs come without the compiler's remarks; CPack's
# own stripping would leave those in.
file(GLOB programs "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/*")
execute_process(
    COMMAND strip --remove-section=.comment --remove-section=.note ${programs}
    COMMAND_ERROR_IS_FATAL ANY)
