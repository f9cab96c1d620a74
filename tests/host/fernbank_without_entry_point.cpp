extern "C" __attribute__((visibility("default"))) int FernbankVersion() {
    return 1;
}
