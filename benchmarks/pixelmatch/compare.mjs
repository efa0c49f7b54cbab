// Compares two images with pixelmatch, without an output image, each time a line is read; answers with the seconds that
// took. The images are those of image_benchmark.cc, by the same formula.
//   node compare.mjs <width> <height> identical|within
import { createInterface } from 'node:readline';
import pixelmatch from 'pixelmatch';

const [width, height] = process.argv.slice(2, 4).map(Number);
const differs = process.argv[4] === 'within';
const image = new Uint8Array(width * height * 4);
for (let i = 0; i < image.length; ++i) image[i] = i % 4 === 3 ? 255 : Math.imul(i, 2654435761) >>> 24;
const other = image.map((byte, i) => (differs && i % 4 !== 3 ? byte ^ (i % 3) : byte));

for await (const _ of createInterface({ input: process.stdin })) {
  const begin = performance.now();
  const different = pixelmatch(image, other, null, width, height, { threshold: 0.1 });
  const seconds = (performance.now() - begin) / 1000;
  console.log(different === 0 ? seconds : 'the images differ');
}
