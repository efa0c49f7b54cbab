// Debian's Chromium without its windows, which starts and draws in half the time, or the one that $CHROMIUM names; on an
// empty profile and without anything that asks the network.

import { chromium } from "playwright-core";

export const launch = () => chromium.launch({
  executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium-headless-shell",
  args: ["--headless", "--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-background-networking",
    "--disable-component-update", "--disable-sync",
    "--disable-checker-imaging"],  // no picture of a page lacks a large image because that is still being decoded
});
