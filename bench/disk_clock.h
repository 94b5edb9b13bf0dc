#pragma once

namespace velmo::bench {

// How long this thread has waited for the disk to make writes durable, since it began.
double diskSeconds();

}  // namespace velmo::bench
