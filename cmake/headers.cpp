// SPDX-License-Identifier: GPL-3.0-or-later
// Deliberately empty: a target that carries precompiled headers needs a source.
