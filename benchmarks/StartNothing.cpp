// A process that does nothing. Linked with different libraries, it shows what loading them costs.
int main() { return 0; }
