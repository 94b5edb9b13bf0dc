#include "shell/application.h"

int main(int argc, char** argv) {
  velmo::shell::Application application(argc, argv);
  return application.run();
}
