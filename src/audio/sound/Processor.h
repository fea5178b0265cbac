#pragma once

// Whether the processor has AVX2 and FMA, and the system keeps their registers. [any]
bool processorHasAvx2();
