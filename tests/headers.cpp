// SPDX-License-Identifier: GPL-3.0-or-later
// Nothing of its own: carries the precompiled headers of the test programs.
