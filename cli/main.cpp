#include <cstdio>
int main() { std::puts("mirvane-cli"); return 0; }
