#include "graphics/textmatrix.h"

uint32_t matrixkind(const plotmatrix *matrix)
{
    const plotmatrix &m = *matrix;
    uint32_t kind = 0;
    if (m.e) kind |= MATRIXMOVEX;
    if (m.f) kind |= MATRIXMOVEY;
    if (m.a != MATRIXONE) kind |= MATRIXSCALEX;
    if (m.d != MATRIXONE) kind |= MATRIXSCALEY;
    if (m.b || m.c || m.a < 0 || m.d < 0) kind |= MATRIXTURN;
    if (!m.a && m.b > 0) kind |= MATRIXTURN90;
    if (!m.a && m.b < 0) kind |= MATRIXTURNBACK;
    if (m.a < 0 && !m.b) kind |= MATRIXTURNROUND;
    return kind;
}
